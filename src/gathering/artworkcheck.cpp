#include "gathering/artworkcheck.h"

#include "base/background.h"
#include "gathering/picturereader.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>

#include <algorithm>
#include <cmath>

namespace {

// Sides of this relation, width to height, still count as square.
constexpr float leastRatio = 0.8F;
constexpr float greatestRatio = 1.3F;

constexpr int bestQuality = 80;
constexpr int leastQuality = 20;
constexpr int qualityStep = 5;

QSize fittingSize(QSize size, float maxSide)
{
    const int side = std::max(1, static_cast<int>(std::lround(maxSide)));
    const double factor = double(side) / std::max(size.width(), size.height());
    const auto scaled = [factor](int length) {
        return std::max(1, static_cast<int>(std::lround(length * factor)));
    };
    return {scaled(size.width()), scaled(size.height())};
}

QByteArray jpegOf(const QImage &image, int quality)
{
    QByteArray encoded;
    QBuffer buffer(&encoded);
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(quality);
    return writer.write(image) ? encoded : QByteArray();
}

/// The best JPEG that is no larger than `maxBytes`; the smallest when each is larger.
QByteArray jpegNotLargerThan(qsizetype maxBytes, const QImage &image)
{
    QByteArray encoded;
    for (int quality = bestQuality; quality >= leastQuality; quality -= qualityStep) {
        encoded = jpegOf(image, quality);
        if (encoded.size() <= maxBytes)
            break;
    }
    return encoded;
}

} // namespace

std::optional<AdjustedImage> adjustedImage(const QByteArray &picture, const ArtworkLimits &limits)
{
    PictureReader reader(picture);
    const QSize size = reader.size();
    if (!isAcceptableSize(size, limits))
        return {};
    const bool fits = float(std::max(size.width(), size.height())) <= limits.maxWidth;
    const QImage image = reader.image(fits ? size : fittingSize(size, limits.maxWidth));
    if (image.isNull())
        return {};
    const AdjustedImage unchanged{picture, reader.mimeType()};
    if (fits)
        return unchanged;
    const QByteArray jpeg = jpegNotLargerThan(picture.size(), onBlack(image));
    if (jpeg.isEmpty() || jpeg.size() >= picture.size())
        return unchanged;
    return AdjustedImage{jpeg, QStringLiteral("image/jpeg"), true};
}

void adjustImageInBackground(const QByteArray &picture, const ArtworkLimits &limits, QObject *owner,
                             AdjustedImageCallback then)
{
    runInBackground([picture, limits] { return adjustedImage(picture, limits); }, owner,
                    std::move(then));
}

bool isAcceptableSize(QSize size, const ArtworkLimits &limits)
{
    if (size.isEmpty() || float(size.width()) < limits.minWidth)
        return false;
    const float ratio = float(size.width()) / float(size.height());
    return limits.nonSquare == NonSquare::Allow || (ratio >= leastRatio && ratio <= greatestRatio);
}

QSize imageSize(const QByteArray &picture)
{
    return PictureReader(picture).size();
}

int imageWidth(const QByteArray &picture)
{
    return std::max(0, imageSize(picture).width());
}
