#include "gathering/songfacts.h"

#include "tags/audioinfotag.h"
#include "text/integervalue.h"

SongFacts songFacts(const AudioInfoTag &tag, const AssetLedger &ledger)
{
    return {.trustsTitle = !ledger.isDesired(AssetSongTitle),
            .title = tag.title(),
            .album = ledger.isDesired(AssetAlbumName) ? std::nullopt : tag.album(),
            .tracksOnAlbum = tag.numberOfTracksOnAlbum()};
}

ScoredSong scoredSong(const SearchRequest &request, const AudioInfoTag &tag,
                      const AssetLedger &ledger)
{
    ScoredSong song;
    song.title = request.songTitle;
    for (const auto &artist : {request.artist, request.alternateArtist})
        if (artist)
            song.artists << *artist;
    song.isCompilation = request.isCompilation;
    song.trackNumber = tag.trackNumber();
    song.tracksOnAlbum = tag.numberOfTracksOnAlbum();
    song.duration = request.songDuration;
    song.year = ledger.isDesired(AssetYear) ? 0 : integerValue(tag.year().value_or(QString()));
    song.allowSubstrings = request.allowSubstrings;
    return song;
}
