#include "sources/shrunkenbitmap.h"

#include "gathering/picturereader.h"

#include <algorithm>
#include <cstdlib>

namespace {

/// No thumbnail is that large, and a page full of larger pictures would be decoded for minutes.
constexpr qint64 mostThumbnailPixels = 4'000'000;

constexpr QSize shrunkenSize{shrunkenSide, shrunkenSide};
constexpr std::size_t bytesPerRow = shrunkenSide * 3;

} // namespace

std::optional<Thumbnail> thumbnailOf(const QByteArray &picture)
{
    PictureReader reader(picture, mostThumbnailPixels);
    const QImage image = reader.image(shrunkenSize);
    if (image.isNull())
        return std::nullopt;
    return Thumbnail{shrunkenBitmap(image), reader.size().width()};
}

ShrunkenBitmap shrunkenBitmap(const QImage &image)
{
    const QImage scaled =
        image.scaled(shrunkenSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QImage rgb = onBlack(scaled).convertToFormat(QImage::Format_RGB888);
    ShrunkenBitmap bitmap;
    for (int row = 0; row < shrunkenSide; ++row)
        std::copy_n(rgb.constScanLine(row), bytesPerRow,
                    bitmap.begin() + static_cast<std::ptrdiff_t>(bytesPerRow) * row);
    return bitmap;
}

// In the plain form that compilers turn into vector instructions: every pair comes through here.
int diffBetween(const ShrunkenBitmap &a, const ShrunkenBitmap &b)
{
    int sum = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        sum += std::abs(int(a[i]) - int(b[i]));
    return sum;
}
