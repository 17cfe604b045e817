#include "songs/cachedinfo.h"

#include "base/fileattributes.h"
#include "base/gzip.h"

#include <QImage>

#include <cstring>

namespace {
constexpr auto iconFormat = QImage::Format_ARGB32_Premultiplied;
constexpr qsizetype iconHead = 2; // width and height
constexpr qsizetype bytesOfPixel = 4;
constexpr int maxIconSide = 255;
/// Shorter texts hardly become smaller.
constexpr qsizetype leastToCompress = 200;
constexpr qsizetype maxLyrics = 16'000'000; // bytes; more is a bomb

/// Dates beyond what the number holds wrap round: they are compared for equality alone.
qint64 nanoseconds(const timespec &time)
{
    constexpr quint64 inASecond = 1'000'000'000;
    return static_cast<qint64>(static_cast<quint64>(time.tv_sec) * inASecond
                               + static_cast<quint64>(time.tv_nsec));
}
} // namespace

CachedInfo::Stamp CachedInfo::stampOf(const FileAttributes &attributes)
{
    return {nanoseconds(attributes.modified), nanoseconds(attributes.changed)};
}

bool CachedInfo::holdsFor(const FileAttributes &attributes, const ID3Dialect &dialect) const
{
    return modDate == stampOf(attributes)
        && isStandardDialect == (dialect == ID3Dialect::standard());
}

std::optional<QString> CachedInfo::lyrics() const
{
    if (packedLyrics.isNull())
        return std::nullopt;
    return QString::fromUtf8(decompressedData(packedLyrics, maxLyrics));
}

void CachedInfo::setLyrics(const std::optional<QString> &lyrics)
{
    packedLyrics = lyrics ? lyrics->toUtf8() : QByteArray();
    if (lyrics && packedLyrics.isNull())
        packedLyrics = QByteArrayLiteral("");
    if (packedLyrics.size() >= leastToCompress && packedLyrics.size() <= maxLyrics)
        packedLyrics = compressedData(packedLyrics);
}

void CachedInfo::shareWith(const CachedInfo &neighbour)
{
    const auto share = [](auto &mine, const auto &other) {
        if (mine == other && mine.isNull() == other.isNull())
            mine = other;
    };
    share(artist, neighbour.artist);
    share(album, neighbour.album);
    share(year, neighbour.year);
    share(genre, neighbour.genre);
    share(readVersion, neighbour.readVersion);
    share(icon, neighbour.icon);
}

QByteArray packedIcon(const QImage &image)
{
    if (image.isNull() || image.width() > maxIconSide || image.height() > maxIconSide)
        return {};
    const QImage pixels = image.convertToFormat(iconFormat);
    QByteArray packed;
    packed.reserve(iconHead + pixels.sizeInBytes());
    packed.append(static_cast<char>(pixels.width())).append(static_cast<char>(pixels.height()));
    for (int y = 0; y < pixels.height(); ++y)
        packed.append(reinterpret_cast<const char *>(pixels.constScanLine(y)),
                      pixels.width() * bytesOfPixel);
    return packed;
}

QImage unpackedIcon(const QByteArray &packed)
{
    if (packed.size() < iconHead)
        return {};
    const int width = static_cast<uchar>(packed.at(0));
    const int height = static_cast<uchar>(packed.at(1));
    if (width == 0 || height == 0 || packed.size() != iconHead + bytesOfPixel * width * height)
        return {};
    QImage image(width, height, iconFormat);
    for (int y = 0; y < height; ++y)
        std::memcpy(image.scanLine(y), packed.constData() + iconHead + bytesOfPixel * width * y,
                    static_cast<size_t>(bytesOfPixel) * static_cast<size_t>(width));
    return image;
}
