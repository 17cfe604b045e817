#pragma once

#include "itunes/tracklocation.h"

/// What a playlist file (M3U, M3U8, PLS or XSPF) names.
struct PlaylistFile {
    QString name; ///< of the file, without folder and ending
    QStringList paths; ///< of the songs that exist, in the list's order
    QStringList missing; ///< of the songs that do not
};

struct PlaylistReading {
    std::optional<PlaylistFile> playlist;
    QString problem; ///< one line, empty when it went well
};

/// Reads a playlist. Songs are named by paths, of this system or Windows, absolute or from the
/// playlist's folder on, or by file URLs; streams are passed over. Each song is looked for as it
/// is named, in its other Unicode forms, and with its escapes undone, since some players write
/// such. Looks at every song, so it may take as long as their disk.
[[nodiscard]] PlaylistReading readPlaylistFile(const QString &path, const MovedFolders &moved = {});

[[nodiscard]] QString nameOfPlaylistFile(const QString &path);

/// The paths of the playlist files in a folder and those below it, in the order of their names.
/// Links to folders are not followed; hidden folders are passed over, and so is what lies deeper
/// or is more than any music folder holds.
[[nodiscard]] QStringList playlistFilesBelow(const QString &folder);
