#pragma once

#include "gathering/sourcecatalog.h"

class LibraryLending;

/// What every task of a run shares.
struct GatherContext {
    HVHTTPQueue &queue;
    const SourceCatalog &catalog;
    SiteDefinitions definitions;
    LibraryLending &library;
};
