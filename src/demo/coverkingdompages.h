#pragma once

#include "demo/samplesite.h"

/// The sample site that lists albums and their scans apart from each other, and the scans.
[[nodiscard]] SampleSite coverKingdomPages();
