#pragma once

#include "itunes/mprisplayer.h"
#include "itunes/scriptrunner.h"
#include "itunes/trackcatalog.h"

#include <QList>

/// Runs the program's own scripts without an AppleScript: recognises each by the text that it was
/// made from, and answers from the library file, from playlist files, and by the music players of
/// the session bus.
class LocalRunner : public ScriptRunner {
public:
    explicit LocalRunner(MusicPlaces places);

    std::optional<QString> run(const QString &script) override;
    /// This runner is what plays the application's part.
    bool isApplicationRunning(const QString &) override { return true; }

private:
    using Arguments = QList<QString>;
    using Result = std::optional<QString>;
    struct Answer;

    Result version(const Arguments &);
    Result playingTrack(const Arguments &);
    Result pause(const Arguments &);
    Result resume(const Arguments &);
    Result displayPlaylist(const Arguments &);
    Result playlistNames(const Arguments &);
    Result playlistInfo(const Arguments &);
    Result playlistContents(const Arguments &arguments);
    Result indexOfPlaylist(const Arguments &arguments);
    Result numberOfTracks(const Arguments &arguments);
    Result identifiersOfTrack(const Arguments &arguments);
    Result fieldOfTrack(const Arguments &arguments);
    Result fieldOfTrackNamed(const Arguments &arguments);
    Result playPlaylist(const Arguments &arguments);
    Result playTitleArtist(const Arguments &arguments);
    Result refreshID(const Arguments &arguments);
    Result refreshTitleArtist(const Arguments &arguments);

    [[nodiscard]] std::optional<CatalogTrack> trackOf(int index, int position);
    [[nodiscard]] Result fieldOf(const CatalogTrack &track, const QString &field) const;
    [[nodiscard]] Result pathOf(const CatalogTrack &track) const;
    [[nodiscard]] bool play(const CatalogTrack &track);

    TrackCatalog mCatalog;
    MprisPlayer mPlayer;
};
