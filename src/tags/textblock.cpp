#include "tags/textblock.h"

#include "base/log.h"
#include "tags/id3strings.h"

namespace {

constexpr qsizetype languageLength = 3;
constexpr qsizetype beforeDescriptor = 1 + languageLength;
constexpr qsizetype shortestBlock = 7;

bool hasText(const std::optional<QString> &text)
{
    return text && !text->isEmpty() && text->front() != QChar::Null;
}

/// Where the text begins: after the zero bytes that follow the descriptor's terminator.
///
/// Kept where the dialect says so: they are skipped one by one, which takes the first half of a
/// UTF-16 unit with it.
qsizetype afterZeros(QByteArrayView bytes, qsizetype at, qsizetype end, int encoding,
                     const ID3Dialect &dialect)
{
    if (dialect.skipsZerosByTextUnit && ID3Strings::isUTF16(encoding)) {
        while (at + 1 < end && bytes[at] == '\0' && bytes[at + 1] == '\0')
            at += 2;
        return at;
    }
    while (at < end && bytes[at] == '\0')
        ++at;
    return at;
}

} // namespace

std::optional<TextBlock> TextBlock::textBlockIn(QByteArrayView bytes, qsizetype offset,
                                                qsizetype length, const ID3Dialect &dialect)
{
    if (length < shortestBlock || offset < 0 || length > bytes.size() - offset)
        return {};
    const int encoding = static_cast<unsigned char>(bytes[offset]);
    if (encoding > ID3Strings::UTF8) {
        qCWarning(logTags, "textBlockIn encoding %d", encoding);
        return {};
    }
    TextBlock block;
    const QByteArrayView language = bytes.sliced(offset + 1, languageLength);
    if (dialect.losesNothing && language == QByteArrayView("\0\0\0", languageLength))
        block.lang = QString(); // unlike none, it is not written as "eng"
    else if (dialect.losesNothing || !language.contains('\0'))
        block.lang = QString::fromLatin1(language);

    const qsizetype end = offset + length;
    qsizetype consumed = length - beforeDescriptor;
    auto text =
        ID3Strings::id3v23String(bytes, offset + beforeDescriptor, encoding, consumed, dialect);
    if (hasText(text))
        block.desc = std::move(text);
    const qsizetype at =
        afterZeros(bytes, offset + beforeDescriptor + consumed, end, encoding, dialect);
    qsizetype rest = end - at;
    text = rest > 0 ? ID3Strings::id3v23String(bytes, at, encoding, rest, dialect) : std::nullopt;
    if (!hasText(text))
        return {};
    block.text = std::move(text);
    return block;
}
