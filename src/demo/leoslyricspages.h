#pragma once

#include "demo/samplesite.h"

/// The sample lyrics site that lists versions by others on its first page of results.
[[nodiscard]] SampleSite leosLyricsPages();
