#pragma once

#include "demo/samplesite.h"

/// The sample lyrics site that is entered by a list of artists.
[[nodiscard]] SampleSite askLyricsPages();
