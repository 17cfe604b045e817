#pragma once

#include "gathering/sourcecatalog.h"

/// Every source class there is. A new source gets its line here and nowhere else.
SourceCatalog builtInSources();
