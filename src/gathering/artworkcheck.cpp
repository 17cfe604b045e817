#include "gathering/artworkcheck.h"

#include "tags/id3image.h"

#include <QBuffer>
#include <QFutureWatcher>
#include <QImage>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>
#include <QPromise>
#include <QThreadPool>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

/// A picture of a few kilobytes can claim any size; what is larger would exhaust memory.
constexpr qint64 maxPixels = 100'000'000;
/// What 100 megapixels of 32 bits take, in MB: what a decoder may allocate.
constexpr int maxDecodedMegabytes = 400;

// Sides of this relation, width to height, still count as square.
constexpr float leastRatio = 0.8F;
constexpr float greatestRatio = 1.3F;

constexpr int bestQuality = 80;
constexpr int leastQuality = 20;
constexpr int qualityStep = 5;

/// Reads one encoded picture, whatever its name or stated type says it is.
class PictureReader {
public:
    explicit PictureReader(const QByteArray &picture)
        : mMimeType(mimeTypeBySignature(picture))
    {
        if (!mMimeType)
            return;
        mBuffer.setData(picture);
        mBuffer.open(QIODevice::ReadOnly);
        QImageReader::setAllocationLimit(maxDecodedMegabytes);
        mReader.setAutoDetectImageFormat(false);
        mReader.setFormat(mMimeType->section(u'/', 1).toLatin1());
        mReader.setDevice(&mBuffer);
        mSize = mReader.size();
    }

    /// Invalid for what is no picture or is larger than we decode.
    [[nodiscard]] QSize size() const
    {
        const bool fits = !mSize.isEmpty() && qint64(mSize.width()) * mSize.height() <= maxPixels;
        return fits ? mSize : QSize();
    }
    [[nodiscard]] QString mimeType() const { return mMimeType.value_or(QString()); }

    /// The picture scaled smoothly to that size; a null image when it is damaged.
    [[nodiscard]] QImage image(QSize scaledSize)
    {
        if (scaledSize != mSize)
            mReader.setScaledSize(scaledSize);
        return mReader.read();
    }

private:
    std::optional<QString> mMimeType;
    QBuffer mBuffer;
    QImageReader mReader;
    QSize mSize;
};

QSize fittingSize(QSize size, float maxSide)
{
    const int side = std::max(1, static_cast<int>(std::lround(maxSide)));
    const double factor = double(side) / std::max(size.width(), size.height());
    const auto scaled = [factor](int length) {
        return std::max(1, static_cast<int>(std::lround(length * factor)));
    };
    return {scaled(size.width()), scaled(size.height())};
}

QImage onBlack(const QImage &image)
{
    QImage canvas(image.size(), QImage::Format_RGB32);
    canvas.fill(Qt::black);
    QPainter(&canvas).drawImage(0, 0, image);
    return canvas;
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
    using Answer = std::optional<AdjustedImage>;
    auto *watcher = new QFutureWatcher<Answer>(owner);
    QObject::connect(watcher, &QFutureWatcherBase::finished, watcher,
                     [watcher, then = std::move(then)] {
                         watcher->deleteLater();
                         then(watcher->result());
                     });
    // Shared because the thread pool copies what it runs.
    const auto promise = std::make_shared<QPromise<Answer>>();
    watcher->setFuture(promise->future());
    QThreadPool::globalInstance()->start([promise, picture, limits] {
        promise->start();
        promise->addResult(adjustedImage(picture, limits));
        promise->finish();
    });
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
