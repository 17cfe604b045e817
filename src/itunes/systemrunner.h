#pragma once

#include "itunes/scriptrunner.h"
#include "itunes/trackcatalog.h"

#include <memory>

/// Playlist files are looked for in the user's music folder.
[[nodiscard]] MusicPlaces usualMusicPlaces(const MovedFolders &moved = {});

/// What runs scripts on this machine: osascript where that program is found on the PATH, else
/// our own runner.
[[nodiscard]] std::unique_ptr<ScriptRunner> systemScriptRunner(const MusicPlaces &places);
