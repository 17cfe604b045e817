#pragma once

#include "gathering/albumlist.h"

// How well an album fits a song, for the picking method Best: docs/matching.md explains the
// marks, with examples.

/// What is known of a song. What is absent or 0 does not count.
struct ScoredSong {
    std::optional<QString> title; ///< absent also when it is looked for
    QStringList artists; ///< the artist in each of its forms
    bool isCompilation = false;
    int trackNumber = 0;
    int tracksOnAlbum = 0;
    std::optional<qint64> duration; ///< milliseconds
    int year = 0; ///< 0 also when it may be overwritten
    Substrings allowSubstrings = Substrings::Refuse;
};

/// Gives each album its score and puts the best first. Of albums with equal scores the source that
/// comes first in `sources` decides, then the earlier year, then more tracks, then the name.
void rankByScore(AlbumList &albums, const ScoredSong &song, const QStringList &sources);
