#pragma once

#include <QSize>

class QWidget;

/// How large a window is at first that has this size in letters of a usual size, in pixels: more in
/// large letters, and never more than the screen has room for.
[[nodiscard]] QSize firstSizeOf(const QWidget &window, QSize inUsualLetters);
