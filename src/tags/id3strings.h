#pragma once

#include "tags/id3dialect.h"

#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <optional>

/// Numbers and texts as ID3 tags store them. `bytes` is always the whole tag (or the whole body
/// of a picture frame); no function reads outside it.
namespace ID3Strings {

/// The ID3 text encodings, as the encoding byte of a frame numbers them.
enum Encoding { Latin1 = 0, UTF16 = 1, UTF16BigEndian = 2, UTF8 = 3 };

/// Whether a text of this encoding is made of 16-bit units.
constexpr bool isUTF16(int encoding)
{
    return encoding == UTF16 || encoding == UTF16BigEndian;
}

/// A text of single bytes up to a zero byte or `maxLength`, without the blanks and control
/// characters at its end: UTF-8, else Latin-1. Nothing when it is empty. Frame IDs are read by
/// it, too.
std::optional<QString> id3v1String(QByteArrayView bytes, qsizetype atOffset, qsizetype maxLength);

/// The text of a v2.2 frame: Latin-1 up to a zero byte for encoding 0, else UTF-16.
QString id3v22String(QByteArrayView bytes, qsizetype atOffset, int encoding, qsizetype maxLength,
                     const ID3Dialect &dialect);

/// The text at the offset, up to a terminator of its encoding. `maxLength` becomes the number
/// of bytes consumed, the terminator included. Nothing for an empty text; nothing, with
/// `maxLength` left alone, for an offset past the end or an unknown encoding.
std::optional<QString> id3v23String(QByteArrayView bytes, qsizetype atOffset, int encoding,
                                    qsizetype &maxLength, const ID3Dialect &dialect);

/// More strings in one frame are damage; a damaged frame must not cost many times its size.
constexpr qsizetype maxStringsInFrame = 50'000;

/// The texts of a text frame's body, which begins with the encoding byte; none when it holds
/// none. Throws MalformedData for more than `maxStringsInFrame`.
QStringList id3v23Strings(QByteArrayView bytes, qsizetype offset, qsizetype length,
                          const ID3Dialect &dialect);

/// UTF-16 with a byte-order mark, which is taken off; big-endian without one. An odd last byte
/// is left out.
QString fromUTF16(QByteArrayView bytes);

} // namespace ID3Strings
