#pragma once

#include <QByteArray>

/// The bytes as a gzip file holds them; the bytes themselves when there is no memory for that.
[[nodiscard]] QByteArray compressedData(const QByteArray &bytes);

/// What a gzip file of these bytes holds, all its members, at most `maxSize` bytes; of a damaged
/// one what stands before the damage. Bytes that are no gzip file are the result themselves.
[[nodiscard]] QByteArray decompressedData(const QByteArray &bytes, qsizetype maxSize);
