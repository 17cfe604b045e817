#pragma once

#include "songs/songfile.h"

/// How the columns of the song list sort. Every comparison gives -1 when `song` comes first, 1
/// when `other` does, 0 when they are equal. Tags that are not held are read.
namespace SongOrder {

using Comparison = int (*)(SongFile &song, SongFile &other);

/// Of numbers, the wrong way round: 1 when a < to, -1 when a > to. Kept so, since the columns
/// choose their direction by the order of its arguments.
int compare(int a, int to);

// By one column. Where a text, track or year is missing, the song comes last.
int rawCompareArtist(SongFile &song, SongFile &other);
int rawCompareTitle(SongFile &song, SongFile &other);
int rawCompareAlbum(SongFile &song, SongFile &other);
int rawCompareGenre(SongFile &song, SongFile &other);
int rawCompareReadVersion(SongFile &song, SongFile &other);
int rawCompareTrack(SongFile &song, SongFile &other);
int rawCompareYear(SongFile &song, SongFile &other); ///< later years first
int rawCompareLyrics(SongFile &song, SongFile &other); ///< songs with lyrics first
int rawCompareArt(SongFile &song, SongFile &other); ///< more pictures first
int rawCompareActivity(SongFile &song, SongFile &other); ///< higher status first
int rawCompareIndex(SongFile &song, SongFile &other);
int rawCompareBPM(SongFile &song, SongFile &other);
int rawCompareIsCompilation(SongFile &song, SongFile &other); ///< compilations first

// By one column and, where it is equal, by others.
int compareIndex(SongFile &song, SongFile &other);
int compareCompilation(SongFile &song, SongFile &other);
int compareArtist(SongFile &song, SongFile &other);
int compareTitle(SongFile &song, SongFile &other);
int compareAlbum(SongFile &song, SongFile &other);
int compareTrack(SongFile &song, SongFile &other);
int compareYear(SongFile &song, SongFile &other);
int compareGenre(SongFile &song, SongFile &other);
int compareLyrics(SongFile &song, SongFile &other);
int compareArt(SongFile &song, SongFile &other);
int compareReadVersion(SongFile &song, SongFile &other);
int compareBPM(SongFile &song, SongFile &other);
int compareActivity(SongFile &song, SongFile &other);

} // namespace SongOrder
