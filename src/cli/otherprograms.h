#pragma once

#include "cli/arguments.h"

/// Which program does what was asked for.
enum class Program {
    This, ///< shows tags, and nothing else is loaded for it
    Full, ///< "tagwright-full": every other command
    Window, ///< "tagwright-window"
};
[[nodiscard]] Program programFor(const Arguments &arguments);

/// Whether a window can be opened: where screens are found by the environment, it names one.
[[nodiscard]] bool hasDisplay();

/// Hands the command line on to another program, which stands beside this one or in
/// ../libexec/tagwright. Returns the exit status when that failed or where the system cannot
/// replace a process by another.
[[nodiscard]] int becomeProgram(Program program, int argc, char **argv);
