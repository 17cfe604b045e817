#pragma once

#include "demo/samplesite.h"

/// The sample track database: its search form's results and its disc records.
[[nodiscard]] SampleSite freeDBPages();
