#pragma once

#include "base/fileattributes.h"
#include "itunes/librarylocation.h"
#include "itunes/tracklocation.h"

#include <QDeadlineTimer>
#include <QMultiHash>
#include <QStringList>

#include <optional>
#include <vector>

/// Where the catalog looks for music besides the library file.
struct MusicPlaces {
    MovedFolders moved;
    QString playlistFolder; ///< playlist files below it are playlists too; none when empty
};

/// One entry of a playlist: a track of the library file, or a file that a playlist file names.
struct CatalogTrack {
    const LibraryTrack *info = nullptr; ///< null for a file; valid until the next question
    QString file; ///< empty for a track of the library
};

struct CatalogPlaylist {
    QString name;
    QString specialKind = QStringLiteral("none");
    bool isLibrary = false;
    bool isSmart = false;
    const LibraryPlaylist *list = nullptr; ///< null for a playlist file
    QString file; ///< of the playlist; empty for one of the library
};

/// The playlists and tracks of the user, from the library file and from playlist files. Playlists
/// are numbered from 1 on, the first one is the library. The library file is read when it is first
/// needed, and again when it was written anew.
class TrackCatalog {
public:
    explicit TrackCatalog(MusicPlaces places);

    /// Looks afresh for what there is.
    void refresh();

    [[nodiscard]] const std::vector<CatalogPlaylist> &playlists();
    /// The first playlist of that name; "Library" is the library in every language. 0 when there
    /// is none.
    [[nodiscard]] int indexOf(const QString &name);
    /// Null when there is no such playlist or it cannot be read; valid until the next question.
    /// What the last one asked for holds is kept, since it is asked for track by track, too.
    [[nodiscard]] const std::vector<CatalogTrack> *tracksOf(int index);
    /// Lets the next tracksOf() look afresh.
    void forgetTracks() { mTracksOf = 0; }

    /// A track of the library; null when there is none, or when the library was written since
    /// this program started, since an export numbers its tracks anew.
    [[nodiscard]] const LibraryTrack *trackWithID(int id);
    /// Tracks of the library by title and artist, in any case.
    [[nodiscard]] std::vector<const LibraryTrack *> tracksTitled(const QString &title);

    /// Where the track's file is here; it need not exist. Nothing for streams.
    [[nodiscard]] std::optional<QString> pathOf(const CatalogTrack &track) const;

private:
    [[nodiscard]] const LibraryFile *library();
    void readLibrary();
    void listPlaylists();
    // False when it cannot be read.
    bool readTracks(const CatalogPlaylist &playlist);
    bool readTracksOfFile(const QString &playlistFile);
    void readTracksOfLibrary(const LibraryPlaylist *list);

    MusicPlaces mPlaces;
    LibraryLocation mLocation;
    std::chrono::system_clock::time_point mStarted = systemClock().now();
    std::optional<LibraryFile> mLibrary;
    QString mLibraryPath;
    FileAttributes mLibraryFile; ///< when it was last read
    QDeadlineTimer mNextLook{0};
    QMultiHash<QString, const LibraryTrack *> mByTitle; ///< made when first asked for
    std::vector<CatalogPlaylist> mPlaylists; ///< empty until they are listed
    QStringList mPlaylistFiles;
    std::vector<CatalogTrack> mTracks;
    int mTracksOf = 0; ///< index of the playlist that they are of; 0: none
    bool mHasReadTracks = false;
    bool mHasListedFiles = false;
};
