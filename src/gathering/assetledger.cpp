#include "gathering/assetledger.h"

#include "tags/audioinfotag.h"

Assets assetsPresent(const AudioInfoTag &tag)
{
    const std::optional<QString> track = tag.track();
    Assets present;
    present.setFlag(AssetArtwork, tag.numberOfImages() > 0);
    present.setFlag(AssetAlbumName, tag.album().has_value());
    present.setFlag(AssetArtist, tag.artist().has_value());
    present.setFlag(AssetYear, tag.year().has_value());
    present.setFlag(AssetSongTitle, tag.title().has_value());
    // A track number without the number of tracks is half of it only.
    present.setFlag(AssetTrack, track && track->contains(u'/'));
    present.setFlag(AssetGenre, tag.genres().has_value());
    present.setFlag(AssetBPM, tag.bpm().has_value());
    present.setFlag(AssetLyrics, tag.lyrics().has_value());
    return present;
}

Assets desiredAssets(Assets gather, Assets overwrite, const AudioInfoTag &tag)
{
    // On a compilation the title tells which of its songs this is.
    if (tag.isPartOfCompilation())
        overwrite &= ~Assets(AssetSongTitle);
    const Assets replaceable = ~assetsPresent(tag) | overwrite;
    return gather & replaceable & ~Assets(AssetArtist);
}
