#pragma once

#include "cli/arguments.h"
#include "cli/report.h"

/// `gather`: the songs become the work list; each is searched, filled in and written back.
int runGather(const Arguments &arguments, Report &report);
