#pragma once

#include "cli/arguments.h"
#include "cli/report.h"

/// `show`: prints the tag of each song, read from the file itself. Uses no GUI library, no
/// network and no event loop, so that it starts as fast as a program can.
int runShow(const Arguments &arguments, Report &report);
