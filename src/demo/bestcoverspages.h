#pragma once

#include "demo/samplesite.h"

/// The sample site that lists covers by the artist's letter, and their pictures.
[[nodiscard]] SampleSite bestCoversPages();
