#pragma once

#include "demo/samplesite.h"

// The sample sites of the two digests: they have pictures alone, where the digests say.

[[nodiscard]] SampleSite ckDigestPages();
[[nodiscard]] SampleSite fredoCoversPages();
