#pragma once

#include <QMap>
#include <QString>

/// The last clean-up of downloaded lyrics, shared by all sources.
namespace LyricsCleanup {

/// Installs the texts to replace in lyrics, for all threads.
void setSubstitutions(const QMap<QString, QString> &substitutions);

/// The lyrics with every substitution made, longer ones first. Case counts. A text that begins or
/// ends with a letter or digit is replaced only where it is not part of a longer word: behind it
/// stands white space, the end, or one of "!?.,)]:;".
[[nodiscard]] QString cleanUpLyrics(const QString &lyrics);

} // namespace LyricsCleanup
