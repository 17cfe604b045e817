#pragma once

#include "text/plainascii.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

/// What strings can do beyond QString. All of it takes time in proportion to the text.
namespace HVStringExtensions {

/// `text` percent-escaped as UTF-8 for use in an address, after existing escapes have been
/// undone, however often they were applied. The reserved characters of addresses stay, but for
/// "#", which would cut the address short.
[[nodiscard]] QString safelyEscapedString(const QString &text);

/// `text` with each word capitalised if it was all lower-case or all upper-case.
[[nodiscard]] QString correctedCaseString(const QString &text);

/// `text` without the whole words of the list, in any case, and trimmed. Words are parted by
/// single spaces. Of a word repeated back to back only every other one is removed.
[[nodiscard]] QString stringWithoutWords(const QString &text, const QStringList &words);

/// `text` without the spans from an open character to the next close character, both included,
/// and trimmed where something was removed. Nesting is not tracked, and nothing is removed any
/// more once fewer than three characters are left.
[[nodiscard]] QString stringWithStrippedEnclosedByChar(const QString &text, QChar open,
                                                       QChar toChar);
[[nodiscard]] QString stringWithStrippedBracketedText(const QString &text);
[[nodiscard]] QString stringWithStrippedParenthesizedText(const QString &text);

/// What is visible of a piece of HTML: tags removed, white space collapsed. Character references
/// stay.
[[nodiscard]] QString stringWithoutHTMLTags(const QString &text);

/// "Lanterns, The" as "The Lanterns"; any other text as it is.
[[nodiscard]] QString normalizedString(const QString &text);

/// UTF-16 with a byte-order mark, high bytes first.
[[nodiscard]] QByteArray bigEndianUnicodeData(const QString &text);

} // namespace HVStringExtensions
