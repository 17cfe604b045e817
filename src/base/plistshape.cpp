#include "base/plistshape.h"

#include "base/bytes.h"

#include <vector>

namespace {

constexpr qsizetype headerSize = 8;
constexpr qsizetype trailerSize = 32;

/// What a list may take in memory, shared parts counted as often as they are referred to.
constexpr quint64 maxExpandedSize = quint64(256) << 20;
/// About what libplist takes for a value beside its bytes.
constexpr quint64 sizeOfNode = 128;

quint64 sizedNumber(ByteReader &reader, int size)
{
    if (size < 1 || size > 8)
        throw MalformedData(QStringLiteral("a number of %1 bytes").arg(size));
    quint64 number = 0;
    for (int i = 0; i < size; ++i)
        number = number << 8 | reader.u8();
    return number;
}

bool isTextWithoutZeros(QByteArrayView bytes, int type)
{
    if (type == 0x5)
        return !bytes.contains('\0');
    for (qsizetype i = 0; i + 1 < bytes.size(); i += 2) {
        if (bytes[i] == 0 && bytes[i + 1] == 0)
            return false;
    }
    return type == 0x6;
}

class ShapeCheck {
public:
    ShapeCheck(QByteArrayView data, int maxDepth);
    void check() { measure(mRoot, 1); }

private:
    struct Measured {
        quint64 size = 0; ///< with all that it refers to
        int height = 0; ///< levels from here down; 0: not yet measured
        bool isKey = false; ///< a text without zero characters, at which libplist aborts
    };

    const Measured &measure(quint64 object, int level);
    [[nodiscard]] ByteReader readerOf(quint64 object) const;
    static quint64 count(ByteReader &reader, int info);
    static quint64 payload(ByteReader &reader, int type, int info);
    Measured container(ByteReader reader, quint64 keys, quint64 values, int level);

    QByteArrayView mData;
    int mMaxDepth;
    QByteArrayView mOffsets;
    int mOffsetSize = 0;
    int mReferenceSize = 0;
    quint64 mRoot = 0;
    std::vector<Measured> mMeasured;
};

ShapeCheck::ShapeCheck(QByteArrayView data, int maxDepth)
    : mData(data)
    , mMaxDepth(maxDepth)
{
    if (data.size() < headerSize + trailerSize)
        throw MalformedData(QStringLiteral("too short for a binary property list"));
    ByteReader trailer(data.last(trailerSize));
    trailer.skip(6);
    mOffsetSize = trailer.u8();
    mReferenceSize = trailer.u8();
    const quint64 objects = trailer.u64();
    mRoot = trailer.u64();
    const quint64 tableStart = trailer.u64();
    const auto end = static_cast<quint64>(data.size() - trailerSize);
    if (tableStart > end || mOffsetSize == 0
        || objects > (end - tableStart) / static_cast<quint64>(mOffsetSize))
        throw MalformedData(QStringLiteral("the table of %1 objects does not fit").arg(objects));
    mOffsets = data.sliced(static_cast<qsizetype>(tableStart));
    mMeasured.resize(objects);
}

ByteReader ShapeCheck::readerOf(quint64 object) const
{
    if (object >= mMeasured.size())
        throw MalformedData(QStringLiteral("no object %1").arg(object));
    ByteReader offsets(mOffsets.sliced(static_cast<qsizetype>(object) * mOffsetSize));
    const quint64 offset = sizedNumber(offsets, mOffsetSize);
    if (offset >= static_cast<quint64>(mData.size() - trailerSize))
        throw MalformedData(QStringLiteral("object %1 lies outside the list").arg(object));
    return ByteReader(mData.sliced(static_cast<qsizetype>(offset)));
}

/// How many bytes, units or values follow: in the low half of the marker, or in a number of its
/// own. Never more than the bytes left.
quint64 ShapeCheck::count(ByteReader &reader, int info)
{
    constexpr int numberFollows = 15;
    auto counted = static_cast<quint64>(info);
    if (info == numberFollows)
        counted = sizedNumber(reader, 1 << (reader.u8() & 7));
    if (counted > static_cast<quint64>(reader.remaining()))
        throw MalformedData(QStringLiteral("%1 values do not fit").arg(counted));
    return counted;
}

quint64 ShapeCheck::payload(ByteReader &reader, int type, int info)
{
    switch (type) {
    case 0x0: // nothing, false and true
        return 0;
    case 0x1: // numbers and dates
    case 0x2:
    case 0x3:
        return quint64(1) << (info & 7);
    case 0x4: // bytes and ASCII
    case 0x5:
        return count(reader, info);
    case 0x6: // UTF-16
        return 2 * count(reader, info);
    case 0x8: // an identifier
        return static_cast<quint64>(info) + 1;
    default:
        throw MalformedData(QStringLiteral("unknown type %1").arg(type));
    }
}

ShapeCheck::Measured ShapeCheck::container(ByteReader reader, quint64 keys, quint64 values,
                                           int level)
{
    Measured measured{sizeOfNode, 1};
    for (quint64 i = 0; i < keys + values; ++i) {
        const Measured &part = measure(sizedNumber(reader, mReferenceSize), level + 1);
        if (i < keys && !part.isKey)
            throw MalformedData(QStringLiteral("a key that is no text"));
        measured.size += part.size;
        measured.height = std::max(measured.height, part.height + 1);
        if (measured.size > maxExpandedSize)
            throw MalformedData(QStringLiteral("too large with its shared parts copied"));
    }
    return measured;
}

/// Each object is read once. An object that refers to itself, however indirectly, is found by its
/// depth.
const ShapeCheck::Measured &ShapeCheck::measure(quint64 object, int level)
{
    ByteReader reader = readerOf(object);
    Measured &measured = mMeasured[object];
    if (level + std::max(measured.height - 1, 0) > mMaxDepth)
        throw MalformedData(QStringLiteral("nested deeper than %1 levels").arg(mMaxDepth));
    if (measured.height > 0)
        return measured;
    const int marker = reader.u8();
    const int type = marker >> 4;
    const int info = marker & 15;
    if (type == 0xA || type == 0xD) {
        const quint64 parts = count(reader, info);
        return measured = container(reader, type == 0xD ? parts : 0, parts, level);
    }
    const quint64 size = payload(reader, type, info);
    const QByteArrayView bytes = reader.bytes(static_cast<qsizetype>(size));
    return measured = {sizeOfNode + size, 1, isTextWithoutZeros(bytes, type)};
}

} // namespace

void checkBinaryPlistShape(QByteArrayView data, int maxDepth)
{
    ShapeCheck(data, maxDepth).check();
}
