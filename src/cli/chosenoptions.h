#pragma once

#include "app/prefscontroller.h"
#include "cli/arguments.h"

// The saved preferences, with what the command line says instead.

[[nodiscard]] ReadOptions readOptionsOf(const Arguments &arguments, const PrefsController &prefs);
[[nodiscard]] WriteOptions writeOptionsOf(const Arguments &arguments, const PrefsController &prefs);
[[nodiscard]] GatheringOptions gatheringOptionsOf(const Arguments &arguments,
                                                  const PrefsController &prefs);
