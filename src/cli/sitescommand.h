#pragma once

#include "cli/report.h"

/// `sites list`, `check` and `update`: the sources in use, whether each finds what it should, and
/// newer definitions of them.
int runSites(const Arguments &arguments, Report &report);
