#include "tags/mp3rewrite.h"

#include "base/bytes.h"
#include "tags/id3ranges.h"
#include "tags/id3v1writer.h"
#include "tags/id3v2header.h"
#include "tags/id3writer.h"

#include <QCoreApplication>

#include <utility>

namespace {

using Outcome = InPlaceFile::Outcome;

Outcome failed(const QString &what, const QString &reason)
{
    return {Outcome::Kind::Failed, QStringLiteral("%1: %2").arg(what, reason)};
}

/// Throws MalformedData when the bytes cannot be had: taking them for absent would leave the old
/// tag standing behind the new one.
QByteArray bytesOf(const InPlaceFile &file, qint64 offset, qint64 length)
{
    const auto bytes = file.read(offset, length);
    if (!bytes)
        throw MalformedData(qtTrId("ErrorCannotReadFile"));
    return *bytes;
}

/// Throws MalformedData for a tag that we could not have read, and for MP4 data, in front of
/// which a tag would make the file unreadable.
void requireMPEGAudio(const InPlaceFile &file, const ID3Ranges &ranges)
{
    const int major = ranges.id3v2.length ? bytesOf(file, 3, 1).at(0) : 3;
    if (major < 2 || major > 4)
        throw MalformedData(QStringLiteral("ID3v2.%1").arg(major));
    if (bytesOf(file, ranges.id3v2.end(), 8).endsWith("ftyp"))
        throw MalformedData(QStringLiteral("MP4"));
}

/// The bytes of the footer behind a v2.4 tag: only such as repeat the header are one, lest audio
/// be taken for it.
qint64 footerLength(const InPlaceFile &file, const ByteRange &tag)
{
    const QByteArray header = bytesOf(file, tag.location, ID3v2Header::length);
    const bool isClaimed = tag.length > 0 && header[3] == 4 && (header[5] & ID3v2Header::footer);
    const bool isThere =
        isClaimed && bytesOf(file, tag.end(), ID3v2Header::length) == "3DI" + header.sliced(3);
    return isThere ? ID3v2Header::length : 0;
}

TagPieces::Made id3v2Tag(const FrameStore &frames, const QString &version,
                         const WriteOptions &options)
{
    using ID3Writer::Version;
    if (version.startsWith(u"2.2"))
        return ID3Writer::dataForID3v22(frames, options);
    const bool isVersion24 = version.startsWith(u"2.4");
    return ID3Writer::dataForID3V23orV24(frames, isVersion24 ? Version::V24 : Version::V23,
                                         options);
}

struct Tags {
    TagPieces::Made id3v2;
    QByteArray id3v1;
};

/// A v1.1 tag replaces whatever there was; a v2 tag is joined by a fresh v1.1 tag where the file
/// had an ID3v1 tag.
Tags newTags(const InPlaceFile &file, const ID3Ranges &old, const FrameStore &frames,
             const QString &version, const WriteOptions &options)
{
    const bool isVersion1 = version.startsWith(u'1');
    Tags tags;
    if (!isVersion1)
        tags.id3v2 = id3v2Tag(frames, version, options);
    if (isVersion1 || old.id3v1.length)
        tags.id3v1 = ID3Writer::dataForID3v11(frames, options.dialect,
                                              bytesOf(file, old.id3v1.location, old.id3v1.length));
    return tags;
}

FileContents contentsWith(const Tags &tags, const ID3Ranges &old, qint64 fileSize)
{
    FileContents contents;
    for (const QByteArray &piece : tags.id3v2.pieces)
        contents.append(piece);
    const qint64 audio = old.id3v2.end();
    const qint64 audioEnd = fileSize - old.id3v1.length;
    if (audioEnd > audio)
        contents.keep(audio, audioEnd - audio);
    if (!tags.id3v1.isEmpty())
        contents.append(tags.id3v1);
    return contents;
}

} // namespace

Outcome MP3Rewrite::rewrite(const QString &path, const FrameStore &frames, const QString &version,
                            const WriteOptions &options)
try {
    const auto [file, error] = InPlaceFile::open(path);
    if (!file)
        return failed(qtTrId("ErrorCannotOpenForWrite"), error);
    const auto read = [&file = *file](qint64 offset, qint64 length) {
        return bytesOf(file, offset, length);
    };
    ID3Ranges old = ID3Ranges::rangesIn(path, file->size(), read);
    if (options.dialect.removesFooter)
        old.id3v2.length += footerLength(*file, old.id3v2);
    requireMPEGAudio(*file, old);
    const Tags tags = newTags(*file, old, frames, version, options);
    if (!tags.id3v2.error.isEmpty())
        return failed(qtTrId("ErrorCannotMakeID3"), tags.id3v2.error);
    return writeContents(*file, contentsWith(tags, old, file->size()), options);
} catch (const MalformedData &malformed) {
    return failed(qtTrId("ErrorFileChanged"), malformed.reason());
}
