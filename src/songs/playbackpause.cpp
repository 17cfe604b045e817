#include "songs/playbackpause.h"

PlaybackPause::PlaybackPause(iTunesInterface &itunes, const QString &path)
    : mItunes(itunes)
    , mPaused(itunes.pathOfCurrentlyPlayingTrack() == path)
{
    if (mPaused)
        mItunes.pausePlaying();
}

PlaybackPause::~PlaybackPause()
{
    if (mPaused)
        mItunes.resumePlaying();
}
