#include "demo/samplepictures.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QRandomGenerator>

namespace {

/// The same for an album in every process, so that its cover is, too.
quint32 seedOf(const SampleAlbum &album)
{
    quint32 seed = 0;
    for (const QChar unit : QString(album.artist + album.name))
        seed = seed * 31 + unit.unicode();
    return seed;
}

void paintGround(QPainter &painter, int hue)
{
    QLinearGradient ground(0, 0, 1, 1);
    ground.setColorAt(0, QColor::fromHsv(hue, 150, 90));
    ground.setColorAt(1, QColor::fromHsv((hue + 40) % 360, 190, 200));
    painter.fillRect(QRectF(0, 0, 1, 1), ground);
}

/// Discs and bars in the opposite colours.
void paintShapes(QPainter &painter, int hue, QRandomGenerator &random)
{
    constexpr int shapes = 5;
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < shapes; ++i) {
        painter.setBrush(QColor::fromHsv((hue + random.bounded(120, 240)) % 360,
                                         random.bounded(80, 220), random.bounded(140, 255)));
        const QPointF centre(random.bounded(1.0), random.bounded(1.0));
        const double size = 0.08 + random.bounded(0.22);
        if (random.bounded(2) == 0)
            painter.drawEllipse(centre, size, size);
        else
            painter.drawRect(QRectF(0, centre.y(), 1, size / 3));
    }
}

} // namespace

QByteArray samplePicture(const SampleAlbum &album, int width, PictureFormat format, int variant)
{
    QImage image(width, width, QImage::Format_RGB32);
    QRandomGenerator random(seedOf(album));
    const int hue = random.bounded(360);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(width, width);
    paintGround(painter, hue);
    paintShapes(painter, hue, random);
    painter.fillRect(QRectF(0, 0, 1, 1), QColor(255, 255, 255, variant));
    painter.end();

    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, format == PictureFormat::PNG ? "PNG" : "JPEG");
    return bytes;
}
