#include "gui/logcolors.h"

namespace {

// Hues in degrees.
constexpr int blue = 214;
constexpr int red = 4;
constexpr int orange = 28;

constexpr int saturation = 190; // of 255: calm, and still a colour
constexpr int lightnessOnLight = 92; // of 255
constexpr int lightnessOnDark = 168;
constexpr int darkBelow = 128;

QColor ofHue(int hue, const QPalette &palette)
{
    const bool isDark = palette.color(QPalette::Base).lightness() < darkBelow;
    return QColor::fromHsl(hue, saturation, isDark ? lightnessOnDark : lightnessOnLight);
}

} // namespace

QColor logColor(LogColor color, const QPalette &palette)
{
    switch (color) {
    case LogColor::Change:
        return ofHue(blue, palette);
    case LogColor::Error:
        return ofHue(red, palette);
    case LogColor::Cancel:
        return ofHue(orange, palette);
    case LogColor::Plain:
    case LogColor::Finished:
        break;
    }
    return palette.color(QPalette::Text);
}
