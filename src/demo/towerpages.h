#pragma once

#include "demo/samplesite.h"

/// A second sample record shop: its results, a few albums on a page, and the pages of albums.
[[nodiscard]] SampleSite towerPages();
