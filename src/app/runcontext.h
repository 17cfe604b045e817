#pragma once

#include "app/engine.h"
#include "gathering/gathercontext.h"

/// What the tasks of a run share, as the user's settings are now. Both must outlive it.
[[nodiscard]] GatherContext runContext(Engine &engine, LibraryLending &library);
