#include "app/pixelslider.h"

#include <algorithm>

int PixelSlider::position(const QSettings &settings) const
{
    return static_cast<int>(std::clamp(setting.value(settings), double(lowest), double(highest)));
}

void PixelSlider::store(int position, QSettings &settings) const
{
    const bool isUnlimited = freeEnd == FreeEnd::Highest && position >= highest;
    setting.set(settings, isUnlimited ? preferences::noLimit : double(position));
}

QString PixelSlider::text(const QSettings &settings) const
{
    const double value = setting.value(settings);
    const bool isFree = freeEnd == FreeEnd::Highest ? value >= highest : value <= lowest;
    return isFree ? qtTrId(freeTextID)
                  : qtTrId("XPixels").arg(QString::number(static_cast<int>(value)));
}

QString noteOnPixels(const QSettings &settings)
{
    const double threshold = preferences::overwriteImageThreshold.value(settings);
    const bool warns = threshold < preferences::overwriteSliderMaximum
        && threshold > preferences::minimumImageSize.value(settings);
    return warns ? qtTrId("OverwriteThresholdHigherThanMinimum") : QString();
}
