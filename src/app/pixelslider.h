#pragma once

#include "app/prefscontroller.h"

/// A setting of pixels that a slider sets, one end of which means that there is no limit.
struct PixelSlider {
    enum class FreeEnd { Lowest, Highest };

    const char *name;
    Setting<double> setting; // pixels
    int lowest; // pixels
    int highest; // pixels
    FreeEnd freeEnd;
    const char *freeTextID;

    [[nodiscard]] int position(const QSettings &settings) const;
    /// Stores what the slider at `position` means.
    void store(int position, QSettings &settings) const;
    /// What the setting is, in words.
    [[nodiscard]] QString text(const QSettings &settings) const;
};

namespace PixelSliders {

inline constexpr PixelSlider minimumSize{
    "minSize", preferences::minimumImageSize, 0,
    600,       PixelSlider::FreeEnd::Lowest,  QT_TRID_NOOP("NoLimit")};
inline constexpr PixelSlider maximumSize{
    "maxSize", preferences::maximumImageSize, 100,
    2000,      PixelSlider::FreeEnd::Highest, QT_TRID_NOOP("NoLimit")};
inline constexpr PixelSlider overwriteSize{"overwriteSize",
                                           preferences::overwriteImageThreshold,
                                           0,
                                           int(preferences::overwriteSliderMaximum),
                                           PixelSlider::FreeEnd::Highest,
                                           QT_TRID_NOOP("All")};

} // namespace PixelSliders

/// Warns where artwork may be replaced that is wider than what is accepted anew; else empty.
[[nodiscard]] QString noteOnPixels(const QSettings &settings);
