#pragma once

#include "gathering/sitedefinition.h"

/// Installs the tables that are read everywhere: simplifiers, genres, lyrics substitutions.
void installTables(const SiteDefinitions &definitions);
