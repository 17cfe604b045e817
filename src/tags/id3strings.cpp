#include "tags/id3strings.h"

#include "base/bytes.h"
#include "base/log.h"

#include <QtEndian>

namespace {

/// `bytes` from `offset` on, at most `maxLength` of them; empty past the end.
QByteArrayView stretch(QByteArrayView bytes, qsizetype offset, qsizetype maxLength)
{
    if (offset < 0 || offset >= bytes.size() || maxLength <= 0)
        return {};
    return bytes.sliced(offset, qMin(maxLength, bytes.size() - offset));
}

QByteArrayView upToZeroByte(QByteArrayView bytes)
{
    const qsizetype zero = bytes.indexOf('\0');
    return zero < 0 ? bytes : bytes.first(zero);
}

/// Text that claims to be UTF-8 and is not is mostly Latin-1; so it loses no character.
QString fromUTF8OrLatin1(QByteArrayView bytes)
{
    return bytes.isValidUtf8() ? QString::fromUtf8(bytes) : QString::fromLatin1(bytes);
}

bool isZeroUnit(QByteArrayView bytes, qsizetype at)
{
    return bytes[at] == '\0' && bytes[at + 1] == '\0';
}

/// How many bytes of UTF-16 units stand before the terminator.
///
/// Kept where the dialect says so: the scan stops before the last unit of `bytes`, so a text
/// that ends with the tag loses its last character; and an odd maximum is rounded up.
qsizetype countUTF16(QByteArrayView bytes, qsizetype offset, qsizetype maxLength,
                     const ID3Dialect &dialect)
{
    qsizetype end = bytes.size() - 2;
    if (dialect.readsLastUTF16Unit)
        end = qMin(bytes.size(), offset + maxLength) - 1;
    qsizetype counted = 0;
    while (offset + counted < end && counted < maxLength && !isZeroUnit(bytes, offset + counted))
        counted += 2;
    return counted;
}

std::optional<QString> utf16String(QByteArrayView bytes, qsizetype offset, qsizetype &maxLength,
                                   const ID3Dialect &dialect)
{
    const qsizetype counted = countUTF16(bytes, offset, maxLength, dialect);
    maxLength = counted + 2;
    if (counted == 0)
        return {};
    return ID3Strings::fromUTF16(bytes.sliced(offset, counted));
}

std::optional<QString> singleByteString(QByteArrayView bytes, qsizetype offset, int encoding,
                                        qsizetype &maxLength)
{
    const QByteArrayView text = upToZeroByte(stretch(bytes, offset, maxLength));
    maxLength = text.size() < maxLength ? text.size() + 1 : text.size();
    if (text.isEmpty())
        return {};
    return encoding == ID3Strings::UTF8 ? fromUTF8OrLatin1(text) : QString::fromLatin1(text);
}

} // namespace

std::optional<QString> ID3Strings::id3v1String(QByteArrayView bytes, qsizetype atOffset,
                                               qsizetype maxLength)
{
    constexpr unsigned char firstPrintable = 33;
    QByteArrayView text = upToZeroByte(stretch(bytes, atOffset, maxLength));
    while (!text.isEmpty() && static_cast<unsigned char>(text.back()) < firstPrintable)
        text.chop(1);
    if (text.isEmpty())
        return {};
    return fromUTF8OrLatin1(text);
}

QString ID3Strings::fromUTF16(QByteArrayView bytes)
{
    bytes = bytes.first(bytes.size() - bytes.size() % 2);
    const bool littleEndian = bytes.startsWith("\xFF\xFE");
    if (littleEndian || bytes.startsWith("\xFE\xFF"))
        bytes = bytes.sliced(2);
    QString text(bytes.size() / 2, Qt::Uninitialized);
    if (littleEndian)
        qFromLittleEndian<char16_t>(bytes.data(), text.size(), text.data());
    else
        qFromBigEndian<char16_t>(bytes.data(), text.size(), text.data());
    return text;
}

QString ID3Strings::id3v22String(QByteArrayView bytes, qsizetype atOffset, int encoding,
                                 qsizetype maxLength, const ID3Dialect &dialect)
{
    QByteArrayView text = stretch(bytes, atOffset, maxLength);
    if (encoding == Latin1)
        return QString::fromLatin1(upToZeroByte(text));
    if (dialect.endsTextOf22AtZero)
        text = text.first(countUTF16(text, 0, text.size(), dialect));
    return fromUTF16(text);
}

std::optional<QString> ID3Strings::id3v23String(QByteArrayView bytes, qsizetype atOffset,
                                                int encoding, qsizetype &maxLength,
                                                const ID3Dialect &dialect)
{
    if (atOffset >= bytes.size() || encoding < Latin1 || encoding > UTF8)
        return {};
    return isUTF16(encoding) ? utf16String(bytes, atOffset, maxLength, dialect)
                             : singleByteString(bytes, atOffset, encoding, maxLength);
}

namespace {

struct EncodedText {
    int encoding;
    qsizetype offset;
};

/// Kept: an encoding byte above 3 is Latin-1, and from the first printable character on it is
/// taken for the text's own first byte.
EncodedText encodedTextAt(QByteArrayView bytes, qsizetype offset)
{
    constexpr int firstText = 32;
    const int encoding = static_cast<unsigned char>(bytes[offset]);
    if (encoding <= ID3Strings::UTF8)
        return {encoding, offset + 1};
    if (encoding < firstText) {
        qCWarning(logTags).noquote()
            << QStringLiteral("id3v23StringsIn encoding %1 treated as encoding 0").arg(encoding);
        return {ID3Strings::Latin1, offset + 1};
    }
    qCWarning(logTags).noquote()
        << QStringLiteral("id3v23StringsIn encoding %1 (no encoding byte)").arg(encoding);
    return {ID3Strings::Latin1, offset};
}

} // namespace

QStringList ID3Strings::id3v23Strings(QByteArrayView bytes, qsizetype offset, qsizetype length,
                                      const ID3Dialect &dialect)
{
    if (offset < 0 || length < 0 || length > bytes.size() - offset) {
        qCWarning(logTags, "id3v23StringsIn <%s %p: %u bytes> @ {%lld, %lld}", "QByteArrayView",
                  static_cast<const void *>(bytes.data()), static_cast<unsigned>(bytes.size()),
                  static_cast<long long>(offset), static_cast<long long>(length));
        return {};
    }
    if (length == 0)
        return {};
    const qsizetype end = offset + length;
    auto [encoding, at] = encodedTextAt(bytes, offset);
    QStringList strings;
    while (at < end) {
        qsizetype consumed = end - at;
        if (auto string = id3v23String(bytes, at, encoding, consumed, dialect))
            strings.append(*std::move(string));
        if (strings.size() > maxStringsInFrame)
            throw MalformedData(QStringLiteral("a frame holds too many strings"));
        at += consumed;
    }
    return strings;
}
