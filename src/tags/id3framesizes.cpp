#include "tags/id3framesizes.h"

#include "base/bytes.h"
#include "tags/synchsafe.h"

#include <algorithm>

namespace {

constexpr qsizetype idLength = 4;

bool isIDCharacter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

bool isFrameID(QByteArrayView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), isIDCharacter);
}

bool isZero(QByteArrayView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return c == '\0'; });
}

/// Whether a frame of `size` at `position` ends with the tag, or before what may be a frame's ID
/// or padding.
bool fits(QByteArrayView tag, qsizetype position, qint64 size)
{
    constexpr qint64 leastAfterwards = 14;
    const qint64 next = position + ID3FrameSizes::frameHeaderLength + size;
    if (next == tag.size())
        return true;
    if (position + size >= tag.size() - leastAfterwards)
        return false;
    const QByteArrayView id = tag.sliced(next, idLength);
    return isFrameID(id) || isZero(id);
}

bool mayBeSynchSafe(QByteArrayView size)
{
    return std::none_of(size.begin(), size.end(), [](char byte) { return (byte & 0x80) != 0; });
}

bool chainHolds(QByteArrayView tag, qsizetype position, ID3FrameSizes::Reading reading)
{
    const bool isSynchSafe = reading == ID3FrameSizes::Reading::SynchSafe;
    while (position <= tag.size() - ID3FrameSizes::frameHeaderLength && tag[position] != '\0') {
        if (!isFrameID(tag.sliced(position, idLength)))
            return false;
        if (isSynchSafe && !mayBeSynchSafe(tag.sliced(position + idLength, 4)))
            return false;
        position +=
            ID3FrameSizes::frameHeaderLength + ID3FrameSizes::sizeAt(tag, position, reading);
    }
    return position <= tag.size() && isZero(tag.sliced(position));
}

} // namespace

qint64 ID3FrameSizes::sizeAt(QByteArrayView tag, qsizetype position, Reading reading)
{
    if (reading == Reading::SynchSafe)
        return SynchSafe::getSynchSafeIntIn(tag, position + idLength);
    return ByteReader(tag.sliced(position + idLength, 4)).u32();
}

std::optional<qint64> ID3FrameSizes::repairedSize(QByteArrayView tag, qsizetype position)
{
    constexpr qint64 firstAmbiguous = 128; // below, both readings agree
    const qint64 plain = sizeAt(tag, position, Reading::Plain);
    if (plain < firstAmbiguous || fits(tag, position, plain))
        return plain;
    const qint64 synchSafe = sizeAt(tag, position, Reading::SynchSafe);
    if (fits(tag, position, synchSafe))
        return synchSafe;
    return {};
}

std::optional<ID3FrameSizes::Reading> ID3FrameSizes::readingByFrameChain(QByteArrayView tag,
                                                                         qsizetype start)
{
    for (const Reading reading : {Reading::SynchSafe, Reading::Plain}) {
        if (chainHolds(tag, start, reading))
            return reading;
    }
    return {};
}
