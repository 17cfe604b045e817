#pragma once

#include <QString>

#include <chrono>
#include <optional>

class SongBytes;

/// How long a song of MPEG audio or MP4 plays, by what its headers say and its size, whichever tags
/// it has. A handful of reads, whatever its size. Nothing when that cannot be told.
[[nodiscard]] std::optional<std::chrono::milliseconds> songLength(const SongBytes &song);
/// The same of the file at `path`, which may be missing.
[[nodiscard]] std::optional<std::chrono::milliseconds> songLengthAt(const QString &path);
