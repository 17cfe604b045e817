// What it takes to choose a cover among 60 thumbnails of an image search: judging them (all pairs
// compared, one chosen), beside decoding and shrinking them, which comes first.
#include "sources/thumbnailconsensus.h"

#include <QBuffer>
#include <QPainter>
#include <QRandomGenerator>

#include <benchmark/benchmark.h>

namespace {

constexpr int thumbnails = 60;
constexpr int alike = 24;
constexpr int side = 128; // pixels
constexpr int similarThreshold = 60'000;

/// One cover, a little paler each time, among pictures of their own.
QByteArray picture(int number)
{
    QImage image(side, side, QImage::Format_RGB32);
    QRandomGenerator random(number < alike ? 1 : quint32(number));
    QPainter painter(&image);
    for (int i = 0; i < 40; ++i)
        painter.fillRect(random.bounded(side), random.bounded(side), side / 2, side / 2,
                         QColor::fromRgb(random.generate()));
    painter.fillRect(image.rect(), QColor(255, 255, 255, number % alike));
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "JPEG");
    return bytes;
}

QList<QByteArray> pictures()
{
    QList<QByteArray> pictures;
    for (int i = 0; i < thumbnails; ++i)
        pictures << picture(i);
    return pictures;
}

Thumbnails decoded(const QList<QByteArray> &pictures)
{
    Thumbnails decoded;
    for (const QByteArray &bytes : pictures)
        decoded.insert(QString::number(decoded.size()), thumbnailOf(bytes).value());
    return decoded;
}

void decodeThumbnails(benchmark::State &state)
{
    const QList<QByteArray> encoded = pictures();
    for (auto _ : state)
        benchmark::DoNotOptimize(decoded(encoded));
}
BENCHMARK(decodeThumbnails)->Unit(benchmark::kMillisecond);

void judgeThumbnails(benchmark::State &state)
{
    const Thumbnails images = decoded(pictures());
    for (auto _ : state) {
        const auto choice = chooseThumbnail(images, similarThreshold);
        if (!choice || choice->unlike.size() != thumbnails - alike)
            return state.SkipWithError("another choice");
    }
}
BENCHMARK(judgeThumbnails)->Unit(benchmark::kMillisecond);

} // namespace
