#pragma once

#include "demo/samplesite.h"

/// The sample site whose lyrics have advertisements between the lines.
[[nodiscard]] SampleSite lyricsAndSongsPages();
