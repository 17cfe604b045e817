#pragma once

#include <QString>

/// Lyrics as an editor has them, with lines that end with "\n", and as songs hold them.
namespace LyricsText {

[[nodiscard]] QString forEditor(QString lyrics);

/// With lines that end like those of `before`, which the song has.
[[nodiscard]] QString forSong(QString edited, const QString &before);

} // namespace LyricsText
