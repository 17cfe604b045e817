#pragma once

#include <QString>

// Lyrics in the LRC form: "[01:12.40] words", the time in minutes and seconds at which the line is
// sung. They come from strangers: every step takes time in proportion to the text.
namespace SyncedLyrics {

/// The words alone. Lines such as "[ar:Nila Oster]", which tell of the song, are left out.
[[nodiscard]] QString withoutTimes(const QString &synced);

/// The latest time in it, in seconds; 0 without any.
[[nodiscard]] double lastTime(const QString &synced);

} // namespace SyncedLyrics
