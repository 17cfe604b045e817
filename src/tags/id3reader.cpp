#include "tags/id3reader.h"

#include "base/bytes.h"
#include "base/log.h"
#include "tags/filetype.h"
#include "tags/id3unsynchronisation.h"
#include "tags/id3v1reader.h"
#include "tags/id3v22frames.h"
#include "tags/id3v2frames.h"
#include "tags/id3v2header.h"

namespace {

void readFrames(QByteArrayView tag, const ID3v2Header &header, const ReadOptions &options,
                ID3Contents &into)
{
    if (header.major == 2)
        ID3v22Frames::getAttributesFromID3v22(tag, options, into);
    else
        ID3v2Frames::getAttributesFromID3v2x(tag, header, options, into);
}

/// Before v2.4 the tag is unsynchronised as a whole; from then on each frame is by itself.
bool isWhollyUnsynchronised(QByteArrayView tag, const ID3v2Header &header)
{
    return header.major < 4 && (header.flags & ID3v2Header::unsynchronised)
        && ID3Unsynchronisation::isPossible(tag.sliced(ID3v2Header::length));
}

ID3Contents contentsIn(const SongBytes &song, const ReadOptions &options)
{
    ID3Contents contents;
    const auto read = [&song](qint64 offset, qint64 length) { return song.read(offset, length); };
    const ID3Ranges ranges = ID3Ranges::rangesIn(song.path(), song.size(), read);
    contents.id3v2Range = ranges.id3v2;
    contents.id3v1Range = ranges.id3v1;
    if (ranges.id3v2.length > 0) {
        const QByteArrayView tag = song.view(ranges.id3v2.location, ranges.id3v2.length);
        if (tag.size() < ranges.id3v2.length)
            throw MalformedData(QStringLiteral("cannot read the tag"));
        ID3Reader::getAttributesFromID3v2(tag, options, contents);
    } else if (ranges.id3v1.length > 0) {
        ID3v1Reader::getAttributesFromID3v1(song.read(ranges.id3v1.location, ranges.id3v1.length),
                                            options.dialect, contents);
    }
    return contents;
}

} // namespace

void ID3Reader::getAttributesFromID3v2(QByteArrayView tag, const ReadOptions &options,
                                       ID3Contents &into)
{
    if (tag.isEmpty())
        return;
    const auto header = ID3v2Header::headerIn(tag);
    if (!header)
        throw MalformedData(QStringLiteral("no ID3v2 header"));
    into.readVersion = QStringLiteral("2.%1.%2").arg(header->major).arg(header->revision);
    if (header->major < 2 || header->major > 4) {
        into.encounteredProblem = true;
        throw MalformedData(QStringLiteral("cannot read ID3v%1").arg(*into.readVersion));
    }
    if (options.dialect.undoesUnsynchronisation && isWhollyUnsynchronised(tag, *header)) {
        const QByteArray plain = ID3Unsynchronisation::undone(tag, ID3v2Header::length);
        readFrames(plain, *header, options, into);
    } else {
        readFrames(tag, *header, options, into);
    }
}

std::optional<ID3Contents> ID3Reader::contentsOf(const SongBytes &song, const ReadOptions &options)
{
    try {
        return contentsIn(song, options);
    } catch (const MalformedData &malformed) {
        qCWarning(logTags).noquote()
            << QStringLiteral("%1: %2").arg(song.path(), malformed.reason());
        return {};
    }
}
