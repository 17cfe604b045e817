#pragma once

#include "app/engine.h"
#include "cli/report.h"

/// Puts the definitions of the file that was named, if one was, in use. False, with an error, when
/// it cannot be read or does not hold.
[[nodiscard]] bool useChosenDefinitions(const Arguments &arguments, Engine &engine, Report &report);
