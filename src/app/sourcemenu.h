#pragma once

#include "app/prefscontroller.h"

#include <QList>

/// One entry of the source menu below the folder's.
struct SourceMenuEntry {
    enum class Kind { Library, Separator, Playlist, Hint };

    Kind kind = Kind::Separator;
    QString title{};
    QString image{}; ///< such as "Menu-Playlist"
};

/// The library if it can be read, and the playlists of the library program if it is running; hints
/// stand where playlists would. Asks with a script runner of its own, on any thread, since that may
/// take long.
[[nodiscard]] QList<SourceMenuEntry> sourceMenuEntries(const MovedFolders &movedFolders);
