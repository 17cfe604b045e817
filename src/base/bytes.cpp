#include "base/bytes.h"

#include <utility>

MalformedData::MalformedData(QString reason)
    : mReason(std::move(reason))
    , mUtf8Reason(mReason.toUtf8())
{
}

QByteArrayView ByteReader::bytes(qsizetype count)
{
    if (count < 0 || count > remaining())
        throw MalformedData(QStringLiteral("%1 bytes wanted, %2 left").arg(count).arg(remaining()));
    const QByteArrayView piece = mBytes.sliced(mPosition, count);
    mPosition += count;
    return piece;
}

template<typename Number>
Number ByteReader::bigEndian(int width)
{
    std::uint64_t value = 0;
    for (const char byte : bytes(width))
        value = value << 8 | static_cast<unsigned char>(byte);
    return static_cast<Number>(value);
}

std::uint8_t ByteReader::u8()
{
    return bigEndian<std::uint8_t>(1);
}

std::uint16_t ByteReader::u16()
{
    return bigEndian<std::uint16_t>(2);
}

std::uint32_t ByteReader::u24()
{
    return bigEndian<std::uint32_t>(3);
}

std::uint32_t ByteReader::u32()
{
    return bigEndian<std::uint32_t>(4);
}

std::uint64_t ByteReader::u64()
{
    return bigEndian<std::uint64_t>(8);
}

void ByteWriter::u16(std::uint16_t value)
{
    u8(static_cast<std::uint8_t>(value >> 8));
    u8(static_cast<std::uint8_t>(value & 0xFF));
}

void ByteWriter::u24(std::uint32_t value)
{
    u8(static_cast<std::uint8_t>(value >> 16 & 0xFF));
    u16(static_cast<std::uint16_t>(value & 0xFFFF));
}

void ByteWriter::u32(std::uint32_t value)
{
    u16(static_cast<std::uint16_t>(value >> 16));
    u16(static_cast<std::uint16_t>(value & 0xFFFF));
}

void ByteWriter::u64(std::uint64_t value)
{
    u32(static_cast<std::uint32_t>(value >> 32));
    u32(static_cast<std::uint32_t>(value & 0xFFFFFFFF));
}
