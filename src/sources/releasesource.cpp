#include "sources/releasesource.h"

#include "text/simplifier.h"

ReleaseSource::ReleaseSource(SiteDefinition resources, HVHTTPQueue &queue,
                             std::shared_ptr<ReleaseShelf> shelf)
    : WebDBInterface(std::move(resources), queue)
    , mShelf(std::move(shelf))
{
}

ReleaseWish ReleaseSource::wish() const
{
    return {.artist = {artist(), alternateArtist()},
            .album = albumTitle().value_or(QString()),
            .title = HVUtility::simplifyString(songTitle().value_or(QString())),
            .duration = songDuration(),
            .substrings = allowSubstrings(),
            .isCompilation = isCompilation(),
            .minScore = resources().number(QStringLiteral("minScore"))};
}

SoughtTrack ReleaseSource::soughtTrack() const
{
    return {.title = songTitle(),
            .substrings = allowSubstrings(),
            .duration = songDuration(),
            .number = trackNumber(),
            .of = tracksOnAlbum()};
}
