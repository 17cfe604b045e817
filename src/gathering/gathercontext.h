#pragma once

#include "gathering/songidentification.h"
#include "gathering/sourcecatalog.h"
#include "gathering/sourceoutages.h"

class LibraryLending;

/// What every task of a run shares.
struct GatherContext {
    HVHTTPQueue &queue;
    const SourceCatalog &catalog;
    SiteDefinitions definitions;
    LibraryLending &library;
    std::optional<IdentifyingMeans> identifying{}; ///< nothing: no song is known by its sound
    SourceOutages outages{};
};
