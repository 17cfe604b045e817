#pragma once

#include "itunes/scriptrunner.h"

#include <memory>

/// What runs scripts on this machine: osascript where that program is found on the PATH, else
/// our own runner.
[[nodiscard]] std::unique_ptr<ScriptRunner> systemScriptRunner();
