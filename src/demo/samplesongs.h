#pragma once

#include <QLatin1String>
#include <QString>

// The folders of the demo's songs.

/// Songs with gaps in their tags.
inline constexpr QLatin1String songsWithGaps("Songs");
/// Songs that are titled by their file names alone ("Track 03"): their titles may be overwritten.
inline constexpr QLatin1String songsWithoutTitles("Untitled");

/// Makes these folders and their songs below `folder`, which must exist: short silent MP3 and AAC
/// files. An error is one line for the user; empty when all went well.
[[nodiscard]] QString makeSampleSongs(const QString &folder);
