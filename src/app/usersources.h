#pragma once

#include "app/songsource.h"

class LibraryLocation;
class iTunesInterface;

/// The library file of the user; nothing when there is none that is used.
[[nodiscard]] std::optional<SongSource> usersLibrary(const PrefsController &prefs);

/// The playlist of that name, asked for with a script runner of its own, since that may take long.
[[nodiscard]] SongSource usersPlaylist(const PrefsController &prefs, const QString &name);

/// The kind of source that was chosen last. Of a user who never chose one it is, from now on, a
/// playlist of the program that runs, else the library that can be read; else a folder.
[[nodiscard]] SourceKind chosenSourceKind(PrefsController &prefs, iTunesInterface &itunes,
                                          LibraryLocation &location);

/// The folder that was chosen last; before that the folder of the library, else "Documents".
[[nodiscard]] QString chosenFolder(const PrefsController &prefs, LibraryLocation &location);
