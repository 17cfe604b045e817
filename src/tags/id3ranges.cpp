#include "tags/id3ranges.h"

#include "base/bytes.h"
#include "base/log.h"
#include "tags/id3v2header.h"

namespace {

constexpr qint64 id3v1Length = 128;
constexpr qint64 headLength = 32;

ByteRange id3v2RangeIn(const QString &path, qint64 fileSize, const QByteArray &head)
{
    const auto header = ID3v2Header::headerIn(head);
    if (!header)
        return {};
    const qint64 length = ID3v2Header::length + header->size;
    // A tag too small for a single frame is refused as well: it is what damage looks like.
    if (header->size <= ID3v2Header::largestRefusedSize || length > fileSize) {
        qCWarning(logTags).noquote()
            << QStringLiteral("MP3 tag length > file length: %1").arg(path);
        throw MalformedData(QStringLiteral("bad size tag"));
    }
    return {0, length};
}

} // namespace

ID3Ranges ID3Ranges::rangesIn(const QString &path, qint64 fileSize, const Read &read)
{
    if (fileSize < id3v1Length) {
        qCWarning(logTags).noquote()
            << QStringLiteral("MP3 only %1 bytes in %2").arg(QString::number(fileSize), path);
        throw MalformedData(QStringLiteral("file too small"));
    }
    ID3Ranges ranges;
    ranges.id3v2 = id3v2RangeIn(path, fileSize, read(0, headLength));
    // The letters "TAG" inside the other tag begin no tag of their own.
    const qint64 tail = fileSize - id3v1Length;
    if (tail >= ranges.id3v2.end() && read(tail, id3v1Length).startsWith("TAG"))
        ranges.id3v1 = {tail, id3v1Length};
    return ranges;
}
