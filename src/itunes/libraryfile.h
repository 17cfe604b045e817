#pragma once

#include "itunes/librarytrack.h"

#include <vector>

struct LibraryPlaylist {
    int id = 0;
    bool isMaster = false; ///< the library itself, which no menu shows as a playlist
    bool isSmart = false;
    /// "none" for an ordinary playlist, "Party Shuffle", or another text for a folder and the
    /// lists that come with the program.
    QString specialKind = QStringLiteral("none");
    QString name; ///< in the user's language; names may repeat
    std::vector<int> trackIDs; ///< in the list's order; tracks may repeat or not exist
};

/// What the library file of iTunes holds, as far as songs and playlists need it. Made by
/// itunes/libraryreader; may be used on any thread.
class LibraryFile {
public:
    LibraryFile(std::vector<LibraryTrack> tracks, std::vector<LibraryPlaylist> playlists);

    /// In the order of their keys compared as texts: "100" stands before "20".
    [[nodiscard]] const std::vector<LibraryTrack> &tracks() const { return mTracks; }
    /// In the file's order.
    [[nodiscard]] const std::vector<LibraryPlaylist> &playlists() const { return mPlaylists; }

    /// Null when there is none. As fast for large libraries as for small ones.
    [[nodiscard]] const LibraryTrack *trackWithID(int id) const;

private:
    std::vector<LibraryTrack> mTracks;
    std::vector<LibraryPlaylist> mPlaylists;
    std::vector<quint32> mByID; ///< positions in mTracks, ordered by the tracks' IDs
};
