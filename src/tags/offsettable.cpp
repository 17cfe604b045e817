#include "tags/offsettable.h"

#include "base/bytes.h"
#include "base/log.h"
#include "tags/atom.h"

#include <QtEndian>

#include <limits>

namespace {

constexpr int wide = 8;
constexpr qint64 largestTable = 64 << 20; ///< sixteen million places
constexpr qint64 versionAndFlags = 4;

/// The head of a table: 'stco' and 'co64' have the number of places next, the others more.
ByteReader headOf(const Atom &table, QByteArray &bytes)
{
    constexpr qint64 longestHead = 32;
    bytes = table.dataIn(0, longestHead);
    return ByteReader(bytes);
}

OffsetTable chunkTable(const Atom &table, int width)
{
    QByteArray bytes;
    ByteReader head = headOf(table, bytes);
    head.skip(versionAndFlags);
    return {versionAndFlags + 4, head.u32(), width, width};
}

OffsetTable auxiliaryTable(const Atom &table)
{
    constexpr quint32 hasType = 1;
    QByteArray bytes;
    ByteReader head = headOf(table, bytes);
    const int width = head.u8() == 0 ? 4 : wide;
    if (head.u24() & hasType)
        head.skip(wide);
    const quint32 count = head.u32();
    return {head.position(), count, width, width};
}

OffsetTable fragmentHeader(const Atom &table)
{
    constexpr quint32 hasBaseOffset = 1;
    QByteArray bytes;
    ByteReader head = headOf(table, bytes);
    head.skip(1);
    const quint32 count = head.u24() & hasBaseOffset ? 1 : 0;
    return {versionAndFlags + 4, count, wide, wide};
}

/// Each entry is a time, a place, and three numbers of one to four bytes.
OffsetTable fragmentIndex(const Atom &table)
{
    QByteArray bytes;
    ByteReader head = headOf(table, bytes);
    const int width = head.u8() == 0 ? 4 : wide;
    head.skip(7);
    const quint32 lengths = head.u32();
    const qint64 numbers = 3 + (lengths & 3) + (lengths >> 2 & 3) + (lengths >> 4 & 3);
    const quint32 count = head.u32();
    return {head.position() + width, count, width, qint64(2) * width + numbers};
}

OffsetTable claimedShape(const Atom &table)
{
    switch (table.name()) {
    case atomName("stco"):
        return chunkTable(table, 4);
    case atomName("co64"):
        return chunkTable(table, wide);
    case atomName("saio"):
        return auxiliaryTable(table);
    case atomName("tfhd"):
        return fragmentHeader(table);
    default:
        return fragmentIndex(table);
    }
}

/// Whether all places stand inside the atom, of which the body has `size` bytes. The number that
/// is logged has always left out four bytes of the atom's head, unless it would then look sound.
bool isSound(const OffsetTable &shape, quint64 size)
{
    constexpr quint64 leftOut = 4;
    if (shape.count == 0)
        return true;
    const quint64 end = static_cast<quint64>(shape.start)
        + static_cast<quint64>(shape.stride) * (shape.count - 1)
        + static_cast<quint64>(shape.width);
    if (end <= size)
        return true;
    qCWarning(logTags).noquote() << QStringLiteral(
                                        "adjustChunkOffsets failed sanity check (%1 > %2)")
                                        .arg((end - leftOut > size ? end - leftOut : end)
                                             + AtomHeader::plainLength)
                                        .arg(size + AtomHeader::plainLength);
    return false;
}

} // namespace

std::optional<OffsetTable> OffsetTable::shapeOf(const Atom &table)
try {
    if (table.extendedSizeLength() > 0 || table.size() > largestTable)
        return std::nullopt;
    const OffsetTable shape = claimedShape(table);
    return isSound(shape, table.size()) ? std::optional(shape) : std::nullopt;
} catch (const MalformedData &) {
    return std::nullopt;
}

quint64 OffsetTable::entry(const QByteArray &body, quint32 index) const
{
    const char *place = body.constData() + start + stride * index;
    return width == wide ? qFromBigEndian<quint64>(place) : qFromBigEndian<quint32>(place);
}

bool OffsetTable::setEntry(QByteArray &body, quint32 index, quint64 place) const
{
    char *at = body.data() + start + stride * index;
    if (width == wide)
        qToBigEndian<quint64>(place, at);
    else if (place <= std::numeric_limits<quint32>::max())
        qToBigEndian<quint32>(static_cast<quint32>(place), at);
    else
        return false;
    return true;
}
