#pragma once

#include "app/songsource.h"
#include "songs/cachedinfo.h"

/// What became of one entry of a source.
struct ReadEntry {
    enum class Result {
        NoSong, ///< passed over
        NoRecord, ///< there is no file, or it is too small
        NoTag,
        Song
    };

    SourceEntry entry;
    Result result = Result::NoSong;
    std::shared_ptr<SongFile> song; ///< holds a tag made from `info`, so no pictures
    CachedInfoPointer info; ///< may be null
    bool isNewInfo = false; ///< the file was read, and its summary can be stored
    bool isCorrupt = false; ///< reading met malformed data
};

using InfoLookUp = std::function<CachedInfoPointer(const QString &path)>;

/// The song of an entry: by its stored summary where that still holds, else read from the file,
/// where its proof says that it is a song. `neighbour`, which may be null, is the
/// summary of a song before it, with which it shares texts.
[[nodiscard]] ReadEntry readSourceEntry(const SourceEntry &entry, const ReadOptions &options,
                                        const InfoLookUp &storedInfo,
                                        const CachedInfoPointer &neighbour);
