#pragma once

#include <QString>

#include <optional>

/// All that the program asks of the music library program (iTunes or what plays its part). This
/// base knows of none: nothing is running, and every question stays without an answer.
class iTunesInterface {
public:
    iTunesInterface() = default;
    iTunesInterface(const iTunesInterface &) = delete;
    iTunesInterface &operator=(const iTunesInterface &) = delete;
    virtual ~iTunesInterface() = default;

    [[nodiscard]] virtual bool isiTunesRunning() const { return false; }

    [[nodiscard]] virtual std::optional<QString> pathOfCurrentlyPlayingTrack() { return {}; }
    virtual void pausePlaying() { }
    virtual void resumePlaying() { }

    // Both have the track's tags read again and give the file's path as the library knows it.
    virtual std::optional<QString>
    refreshAndGetPathOfSongWithID(int databaseID, const std::optional<QString> &inPlaylist);
    virtual std::optional<QString> refreshAndGetPathOfSongWithTitle(const QString &title,
                                                                    const QString &artist);
};
