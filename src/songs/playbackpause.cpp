#include "songs/playbackpause.h"

#include "base/fileattributes.h"

namespace {
/// Players write paths in their own ways, and one file may have several.
bool isSameSong(const std::optional<QString> &playing, const QString &path)
{
    if (!playing || playing == path)
        return playing.has_value();
    const auto played = FileAttributes::at(*playing);
    const auto song = FileAttributes::at(path);
    return played && song && played->isSameFile(*song);
}
} // namespace

PlaybackPause::PlaybackPause(iTunesInterface &itunes, const QString &path)
    : mItunes(itunes)
    , mPaused(isSameSong(itunes.pathOfCurrentlyPlayingTrack(), path))
{
    if (mPaused)
        mItunes.pausePlaying();
}

PlaybackPause::~PlaybackPause()
{
    if (mPaused)
        mItunes.resumePlaying();
}
