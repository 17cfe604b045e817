#include "tags/id3ranges.h"

#include "base/bytes.h"
#include "base/log.h"
#include "tags/synchsafe.h"

#include <algorithm>

namespace {

constexpr qint64 id3v1Length = 128;
constexpr qint64 id3v2HeaderLength = 10;
constexpr qint64 headLength = 32;

bool isID3v2Header(const QByteArray &head)
{
    const auto isSizeByte = [](char byte) { return (byte & 0x80) == 0; };
    return head.size() >= id3v2HeaderLength && head.startsWith("ID3") && head[3] != '\xFF'
        && head[4] != '\xFF' && std::all_of(head.begin() + 6, head.begin() + 10, isSizeByte);
}

ByteRange id3v2RangeIn(const QString &path, qint64 fileSize, const QByteArray &head)
{
    if (!isID3v2Header(head))
        return {};
    const qint64 size = SynchSafe::getSynchSafeIntIn(head, 6);
    // A tag too small for a single frame is refused as well: it is what damage looks like.
    if (size <= 6 || size + id3v2HeaderLength > fileSize) {
        qCWarning(logTags).noquote()
            << QStringLiteral("MP3 tag length > file length: %1").arg(path);
        throw MalformedData(QStringLiteral("bad size tag"));
    }
    return {0, size + id3v2HeaderLength};
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
