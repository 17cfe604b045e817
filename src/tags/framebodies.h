#pragma once

#include "tags/textblock.h"

#include <QByteArray>
#include <QStringList>

/// The bodies of the frames that we know, as ID3 tags store them; the way back is in id3strings
/// and textblock.
namespace FrameBodies {

/// How text beyond Latin-1 is written: UTF-16, most significant byte first.
struct UnicodeForm {
    char encoding; ///< the encoding byte of such a frame
    bool byteOrderMark; ///< whether each text begins with one
};

inline constexpr UnicodeForm marked{1, true};
inline constexpr UnicodeForm unmarked{1, false}; ///< what v2.2 tags of ours have long held
inline constexpr UnicodeForm bigEndian{2, false};

/// Whether every character fits a single byte; then text is written so.
[[nodiscard]] bool isLatin1(const QString &text);

/// Encoding byte, and each string with a terminator.
[[nodiscard]] QByteArray terminatedTexts(const QStringList &strings, UnicodeForm unicode);

/// Encoding byte and string, without a terminator.
[[nodiscard]] QByteArray singleText(const QString &string, UnicodeForm unicode);

/// Encoding byte, language ("eng" when there is none), terminated descriptor, text.
[[nodiscard]] QByteArray textBlock(const TextBlock &block, UnicodeForm unicode);

} // namespace FrameBodies
