#pragma once

#include "demo/samplesite.h"

/// The sample image search: a page of results, its thumbnails, and the pictures behind them.
[[nodiscard]] SampleSite googleImagePages();
