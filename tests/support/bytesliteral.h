#pragma once

#include <QByteArray>

/// "A\0B"_bytes: all bytes of the literal, zero bytes included.
inline QByteArray operator""_bytes(const char *bytes, std::size_t size)
{
    return {bytes, static_cast<qsizetype>(size)};
}
