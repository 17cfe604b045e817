#pragma once

#include "app/userlog.h"

#include <QPalette>

/// The colour of a line of the log on the palette's base: blue for changes, red for errors, orange
/// for a cancel, and the colour of texts otherwise. Always dark or light enough to be read.
[[nodiscard]] QColor logColor(LogColor color, const QPalette &palette);
