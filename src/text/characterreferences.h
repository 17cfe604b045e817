#pragma once

#include <QString>
#include <QStringView>

/// The value of a decimal digit, or with hexadecimal ones allowed 10 to 15 for A to F in either
/// case; else -1.
enum class HexAllowed { No, Yes };
[[nodiscard]] int CharacterToNumber(char16_t character, HexAllowed hexAllowed);

/// What pages mean that number characters from 0x80 to 0x9F as Windows-1252 does; any other
/// character as it is.
[[nodiscard]] char16_t ASCIIHighBitToUnicode(char16_t character);

namespace HVStringExtensions {

/// What a character reference stands for and how many units it takes, from its "&" to a ";" if
/// there is one. Both are 0 where none stands.
struct CharacterReference {
    char16_t character = 0;
    qsizetype codeLength = 0;
};

/// The reference that starts at the index: "&amp;", "&#38;" or "&#x26;". A number beyond 16 bits
/// is none, nor is an unknown name.
[[nodiscard]] CharacterReference ampersandCodeEquivalentAtIndex(QStringView text, qsizetype index);

/// `text` with every character reference replaced by its character.
[[nodiscard]] QString stringByReplacingAmpersandCodes(const QString &text);

} // namespace HVStringExtensions
