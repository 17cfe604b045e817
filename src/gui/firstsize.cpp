#include "gui/firstsize.h"

#include <QFontMetrics>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace {
constexpr double usualHeightOfLetters = 17; // pixels
constexpr QSize aroundWindow(12, 40); // pixels that the desktop's frame takes
} // namespace

QSize firstSizeOf(const QWidget &window, QSize inUsualLetters)
{
    const double scale = std::max(1.0, window.fontMetrics().height() / usualHeightOfLetters);
    return (inUsualLetters * scale).boundedTo(window.screen()->availableSize() - aroundWindow);
}
