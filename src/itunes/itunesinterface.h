#pragma once

#include "base/clock.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <chrono>
#include <functional>
#include <optional>

class ScriptArgument;
class ScriptRunner;

/// How time passes for whoever has to wait for the library program.
struct Waiting {
    const Clock *clock = &systemClock();
    /// Holds the calling thread.
    std::function<void(std::chrono::milliseconds)> sleep;
    /// Lets the event loop go on meanwhile.
    std::function<void(std::chrono::milliseconds)> letPass;

    static Waiting real();
};

/// A track as the library program knows it.
struct TrackIdentifiers {
    QString location; ///< path of the file
    QString databaseID; ///< in decimal digits
};

/// All that the program asks of the music library program (iTunes or what plays its part), by
/// scripts. Without a runner nothing is running, and every question stays without an answer. Used
/// on the main thread.
class iTunesInterface {
public:
    iTunesInterface() = default;
    /// The runner must outlive this.
    explicit iTunesInterface(ScriptRunner &runner, Waiting waiting = Waiting::real());
    iTunesInterface(const iTunesInterface &) = delete;
    iTunesInterface &operator=(const iTunesInterface &) = delete;
    virtual ~iTunesInterface() = default;

    /// Waits, at most for five seconds, for a script that is still running when a nested event
    /// loop starts another one, and keeps others out; false when it goes on for longer.
    bool lock();
    void unlock() { mIsLocked = false; }

    /// The script's result; nothing when it has none, failed or was kept out.
    std::optional<QString> stringFromScript(const QString &script);
    /// -1 on any failure.
    int intFromScript(const QString &script);
    /// `key` names a resource such as "iTunes_Playlist_Names"; without it, nothing.
    std::optional<QString> stringFromScriptFile(const QString &key);

    /// The answer is kept until resetIsiTunesRunning().
    [[nodiscard]] virtual bool isiTunesRunning() const;
    void resetIsiTunesRunning() { mRunningState = -1; }
    /// -1 while unknown.
    int iTunesMajorVersion();

    [[nodiscard]] virtual std::optional<QString> pathOfCurrentlyPlayingTrack();
    virtual void pausePlaying();
    virtual void resumePlaying();
    /// Launches the program when it is not running. `ofPlaylist` may be empty and `index`, from 1
    /// on, 0. Returns whether a track started playing.
    bool playTrackNamed(const QString &title, const QString &byArtist, int index,
                        const QString &ofPlaylist);

    /// Nothing when the program does not answer.
    std::optional<QStringList> playlists();
    /// For each playlist its name, special kind ("none" for an ordinary one) and "true" when it
    /// is a smart one.
    std::optional<QList<QStringList>> playlistsInfo();
    void displayPlaylist(const QString &name);
    /// From 1 on; -1 when there is no such playlist.
    int indexOfPlaylist(const QString &name);
    /// -1 on failure.
    int numberOfTracksInPlaylistIndex(int index);
    std::optional<QList<TrackIdentifiers>> identifiersForPlaylistIndex(int index);
    /// `track` from 1 on.
    std::optional<TrackIdentifiers> identifiersForTrackIndex(int track, int ofPlaylistIndex);
    /// `field` as scripts name it, such as "album artist"; `ofTrackIndex` from 1 on.
    std::optional<QString> valueOfField(const QString &field, int ofTrackIndex,
                                        const QString &ofPlayList);
    int intValueOfField(const QString &field, int ofTrackIndex, const QString &ofPlayList);
    /// Of a track of the whole library.
    std::optional<QString> valueOfField(const QString &field, const QString &ofTrackNamed);

    // Both have the track's tags read again and give the file's path as the library knows it.
    virtual std::optional<QString>
    refreshAndGetPathOfSongWithID(int databaseID, const std::optional<QString> &inPlaylist);
    virtual std::optional<QString> refreshAndGetPathOfSongWithTitle(const QString &title,
                                                                    const QString &artist);

private:
    using Arguments = QList<ScriptArgument>;
    std::optional<QString> runFilled(QStringView script, const Arguments &arguments);
    std::optional<QString> runFile(const QString &key, const Arguments &arguments);
    void launchiTunes();

    ScriptRunner *mRunner = nullptr;
    Waiting mWaiting = Waiting::real();
    bool mIsLocked = false;
    mutable int mRunningState = -1; ///< -1 unknown, 1 running
    int mMajorVersion = -1;
};
