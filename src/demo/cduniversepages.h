#pragma once

#include "demo/samplesite.h"

/// A sample record shop: its list of artists, the artists' pages, and those of the albums.
[[nodiscard]] SampleSite cdUniversePages();
