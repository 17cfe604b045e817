#pragma once

#include "app/prefscontroller.h"
#include "gathering/songinfotask.h"

/// What may be overwritten in a song whose widest picture is so many pixels wide (0 without
/// any): wider artwork than the threshold stays.
[[nodiscard]] Assets overwritableAssets(const GatheringOptions &options, int existingWidth);

/// Gives the task of a song, whose tag must be there, the user's choices.
void setUpTask(SongInfoTask &task, const GatheringOptions &options);
