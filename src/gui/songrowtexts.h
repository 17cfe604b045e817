#pragma once

#include "app/songcolumns.h"

#include <QIcon>

/// The icon of what the song is doing; empty for one that is ready.
[[nodiscard]] QIcon activityIcon(const SongFile &song);
/// Stands for lyrics.
[[nodiscard]] QIcon lyricsMark();

/// What the song is doing, or why it cannot be changed; empty for one that is ready.
[[nodiscard]] QString activityText(const SongFile &song);
/// Plain text of several lines, in which nothing is markup.
[[nodiscard]] QString toolTipOf(SongColumn column, const SongFile &song);
/// What a picture or mark says; empty where the text says it.
[[nodiscard]] QString accessibleText(SongColumn column, SongFile &song);
