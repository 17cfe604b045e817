#pragma once

#include "songs/songfileinfocache.h"

class SongFile;

/// Makes the summary of the song's tag, which is what the file holds now, and keeps that of a sound
/// tag in the cache, which may be null. Null when the file cannot be read.
CachedInfoPointer storeSummary(SongFile &song, SongFileInfoCache *cache);

/// Has the list show the song by the summary; without one its tag is read when it is asked for.
/// One that could not be written stays a problem.
void adoptSummary(SongFile &song, CachedInfoPointer summary);
