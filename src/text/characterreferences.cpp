#include "text/characterreferences.h"

#include "text/entitytable.h"

#include <algorithm>

using HVStringExtensions::CharacterReference;

namespace {

static_assert(std::ranges::is_sorted(entityTable, {}, &NamedEntity::name));

constexpr std::array<char16_t, 32> windows1252{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool isNameCharacter(QChar c)
{
    const char16_t lower = c.unicode() | 0x20;
    return (c >= u'0' && c <= u'9') || (lower >= u'a' && lower <= u'z' && c.unicode() < 0x80);
}

CharacterReference namedReference(QStringView afterAmpersand)
{
    const auto *const end = std::ranges::find_if_not(afterAmpersand, isNameCharacter);
    const std::u16string_view name(afterAmpersand.utf16(),
                                   static_cast<std::size_t>(end - afterAmpersand.begin()));
    const auto *const entity = std::ranges::lower_bound(entityTable, name, {}, &NamedEntity::name);
    if (entity == entityTable.end() || entity->name != name)
        return {};
    return {entity->character, end - afterAmpersand.begin() + 1};
}

CharacterReference numericReference(QStringView afterHash)
{
    const bool isHex = !afterHash.isEmpty() && (afterHash[0] == u'x' || afterHash[0] == u'X');
    const HexAllowed hexAllowed = isHex ? HexAllowed::Yes : HexAllowed::No;
    const qsizetype start = isHex ? 1 : 0;
    // No digit beyond the eighth is read: a longer number ends there and the rest stays as text,
    // which is how pages have always been read.
    const qsizetype end = std::min<qsizetype>(afterHash.size(), start + 8);
    quint32 value = 0;
    qsizetype i = start;
    for (; i < end; ++i) {
        const int digit = CharacterToNumber(afterHash[i].unicode(), hexAllowed);
        if (digit < 0)
            break;
        value = value * (isHex ? 16 : 10) + static_cast<quint32>(digit);
    }
    if (value == 0 || value > 0xFFFF)
        return {};
    return {ASCIIHighBitToUnicode(static_cast<char16_t>(value)), i + 2};
}

} // namespace

int CharacterToNumber(char16_t character, HexAllowed hexAllowed)
{
    if (character >= u'0' && character <= u'9')
        return character - u'0';
    const int lower = character | 0x20;
    return hexAllowed == HexAllowed::Yes && lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

char16_t ASCIIHighBitToUnicode(char16_t character)
{
    return character >= 0x80 && character <= 0x9F ? windows1252[character - 0x80] : character;
}

CharacterReference HVStringExtensions::ampersandCodeEquivalentAtIndex(QStringView text,
                                                                      qsizetype index)
{
    if (index < 0 || index >= text.size() - 1 || text[index] != u'&')
        return {};
    const bool isNumeric = text[index + 1] == u'#';
    CharacterReference reference = isNumeric ? numericReference(text.sliced(index + 2))
                                             : namedReference(text.sliced(index + 1));
    const qsizetype end = index + reference.codeLength;
    if (reference.codeLength > 0 && end < text.size() && text[end] == u';')
        ++reference.codeLength;
    return reference;
}

QString HVStringExtensions::stringByReplacingAmpersandCodes(const QString &text)
{
    qsizetype next = text.indexOf(u'&');
    if (next < 0)
        return text;
    QString replaced;
    replaced.reserve(text.size());
    qsizetype position = 0;
    for (; next >= 0; next = text.indexOf(u'&', position)) {
        replaced += QStringView(text).sliced(position, next - position);
        const auto reference = ampersandCodeEquivalentAtIndex(text, next);
        replaced += reference.character != 0 ? QChar(reference.character) : QChar(u'&');
        position = next + std::max<qsizetype>(reference.codeLength, 1);
    }
    return replaced += QStringView(text).sliced(position);
}
