#pragma once

#include "itunes/playerbus.h"

#include <QString>

#include <optional>

/// The music players on the session bus that speak MPRIS, as one player. Finding the playing
/// track, pausing and resuming take less than two seconds together, whatever the players do.
class MprisPlayer {
public:
    /// Path of the file being played now; nothing when no player plays, or what it plays is no
    /// local file. Of several players one that is playing a local file is meant.
    [[nodiscard]] std::optional<QString> pathOfPlayingTrack();

    /// Pauses the player that pathOfPlayingTrack() last found, else the first one that plays.
    void pause();
    /// Resumes what pause() paused, where it stopped.
    void resume();

    /// Has a player play the file, one that is playing before others; false without any.
    bool play(const QString &path);

private:
    [[nodiscard]] QStringList playingPlayers();

    PlayerBus mBus;
    QString mPlaying; ///< bus name of the player last found playing
    QString mPaused; ///< bus name of the player that is held
};
