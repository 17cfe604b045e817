#include "app/songsummary.h"

#include "songs/cachedinfotag.h"
#include "songs/songfile.h"

#include <utility>

CachedInfoPointer storeSummary(SongFile &song, SongFileInfoCache *cache)
{
    const AudioInfoTag *tag = song.infotag();
    if (!tag)
        return nullptr;
    const auto info = CachedInfoTag::infoDictForTag(*tag, song.path(), song.readOptions().dialect);
    if (info && cache && !tag->encounteredProblemDecoding())
        cache->storeInfo(*info, song.path());
    return info ? std::make_shared<const CachedInfo>(*info) : nullptr;
}

void adoptSummary(SongFile &song, CachedInfoPointer summary)
{
    const SongStatus status = song.activityStatus();
    song.adoptInfotag(tagWithCachedInfo(std::move(summary)));
    song.setActivityStatus(status);
}
