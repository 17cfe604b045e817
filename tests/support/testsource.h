#pragma once

#include "gathering/sourcecatalog.h"

/// One source, "TestInterface", with a page for each song title below the address "query" of its
/// definition: a line "album;year;picture's address" for each album, of which the last may be
/// missing. With "hangs" in its definition it never ends, cancelled or not.
[[nodiscard]] SourceCatalog testSources();

[[nodiscard]] SiteDefinitions testDefinitions(const QVariantMap &source);
