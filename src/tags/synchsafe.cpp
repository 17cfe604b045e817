#include "tags/synchsafe.h"

std::uint32_t SynchSafe::getSynchSafeIntIn(QByteArrayView bytes, qsizetype atOffset)
{
    std::uint32_t value = 0;
    for (const char byte : bytes.sliced(atOffset, 4))
        value = value << 7 | (static_cast<unsigned char>(byte) & 0x7FU);
    return value;
}

std::uint32_t SynchSafe::synchSafe(std::uint32_t value)
{
    return (value & 0x7FU) | (value & 0x3F80U) << 1 | (value & 0x1F'C000U) << 2
        | (value & 0xFE0'0000U) << 3;
}
