#pragma once

#include "base/savedbytes.h"

#include <system_error>

/// Makes the open song hold the new bytes, on the disk when this returns without error. Room for
/// growth is taken before the first byte is overwritten.
std::error_code overwrite(int song, const SavedBytes &savedBytes, const WritePlan &plan);

/// Makes the open song hold the old bytes again, on the disk when this returns without error.
std::error_code rollBack(int song, const SavedBytes &savedBytes, const WritePlan &plan);

/// What a song holds whose write was interrupted.
struct SongState {
    bool isOld = true; ///< the old bytes, no other
    bool isNew = true; ///< the new bytes, no other
    bool isForeign = false; ///< bytes that are neither: someone else wrote it since
    qint64 evidence = 0; ///< how many bytes are different in old and new, and are one of them
};

/// Compares the open song with its old and its new bytes.
std::error_code examine(int song, const SavedBytes &savedBytes, const WritePlan &plan,
                        SongState &state);
