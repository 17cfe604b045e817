#pragma once

#include "itunes/itunesinterface.h"

/// Holds the player while a song is overwritten: pauses it when it is playing that very song,
/// and resumes it at the end of the scope.
class PlaybackPause {
public:
    PlaybackPause(iTunesInterface &itunes, const QString &path);
    PlaybackPause(const PlaybackPause &) = delete;
    PlaybackPause &operator=(const PlaybackPause &) = delete;
    ~PlaybackPause();

private:
    iTunesInterface &mItunes;
    bool mPaused;
};
