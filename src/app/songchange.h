#pragma once

#include "app/prefscontroller.h"
#include "app/songvalues.h"
#include "gathering/albumlist.h"

/// What gathering did to a song, kept so that the user can look at it and decide otherwise.
struct SongChange {
    SongValues before; ///< as the file was when the song was begun
    SongValues after; ///< with what was found
    SongValues inFile; ///< as the file is now
    AlbumList albums; ///< those of the candidates of its ChoiceRecord, in the same order
    GatheringOptions options; ///< by which it was gathered
};
