#pragma once

#include "app/songsource.h"

/// Every song file in the folder at any depth; nothing when there is no such folder.
[[nodiscard]] std::optional<SongSource> folderSource(const QString &path);
