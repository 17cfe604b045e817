#pragma once

#include "base/namedpaths.h"
#include "songs/songfile.h"

/// What a path that the user gave turned out to be.
struct OpenedSong {
    std::shared_ptr<SongFile> song; ///< null when it is no song
    QString error; ///< why not; empty for what is passed over in silence
};

/// The song at a path that the user gave. What stands in a folder and is no song is passed over.
[[nodiscard]] OpenedSong openSong(const FoundPath &found, const ReadOptions &options);
