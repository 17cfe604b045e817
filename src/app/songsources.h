#pragma once

#include "app/songsource.h"
#include "itunes/itunesinterface.h"
#include "itunes/tracklocation.h"

/// Every song file in the folder at any depth; nothing when there is no such folder.
[[nodiscard]] std::optional<SongSource> folderSource(const QString &folder);

/// Every song at these paths: a file, whatever its name, or every song in a folder at any depth.
/// In the order given, a folder's songs in sorted order of their paths.
[[nodiscard]] SongSource pathsSource(const QStringList &paths);

/// Every track of the library file, in the order of their keys.
[[nodiscard]] SongSource librarySource(const QString &libraryFile, const MovedFolders &moved = {});

/// Asks for the tracks of the playlist of that name; nothing when there is none. Called on the
/// thread of the source.
using TracksOfPlaylist = std::function<std::optional<QList<TrackIdentifiers>>(const QString &name)>;

/// Every track of the playlist, in its order.
[[nodiscard]] SongSource playlistSource(const QString &name, TracksOfPlaylist tracksOfPlaylist);

/// What the library program answers, which then also shows the playlist.
[[nodiscard]] std::optional<QList<TrackIdentifiers>> tracksOfPlaylist(iTunesInterface &itunes,
                                                                      const QString &name);
