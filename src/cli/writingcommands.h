#pragma once

#include "cli/arguments.h"
#include "cli/report.h"

/// `set`: changes fields of songs and writes them back.
int runSet(const Arguments &arguments, Report &report);

/// `regenerate`: writes each tag anew with what is sound and recognised in it.
int runRegenerate(const Arguments &arguments, Report &report);
