#pragma once

#include "cli/report.h"

/// `demo`: gathers sample songs from sample sites inside the process, and prints each song
/// before and after.
int runDemo(Report &report);
