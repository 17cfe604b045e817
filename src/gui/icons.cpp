#include "gui/icons.h"

#include <QBuffer>
#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QImageReader>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>

namespace {

/// Below this size a picture is taken that is drawn for few pixels, where there is one.
constexpr int fewPixels = 22;

QString pathOf(const QString &name)
{
    return QStringLiteral(":/icons/%1.svg").arg(name);
}

QByteArray drawingOf(const QString &name, QSize size)
{
    QFile file(pathOf(name + QStringLiteral("-16")));
    if (size.height() > fewPixels || !file.exists())
        file.setFileName(pathOf(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QColor textColor(QIcon::Mode mode)
{
    const QPalette palette = QGuiApplication::palette();
    if (mode == QIcon::Selected)
        return palette.color(QPalette::Active, QPalette::HighlightedText);
    return palette.color(mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active,
                         QPalette::WindowText);
}

/// The drawings are read by Qt's image plugin for SVG: no library is loaded before the first
/// icon is painted, and a system without the plugin has a program without icons.
QImage rendered(const QString &name, QSize size, const QColor &color)
{
    QByteArray drawing = drawingOf(name, size);
    drawing.replace("currentColor", color.name().toLatin1());
    QBuffer buffer(&drawing);
    QImageReader reader(&buffer, "svg");
    reader.setScaledSize(reader.size().scaled(size, Qt::KeepAspectRatio));
    return reader.read();
}

class DrawnIcon : public QIconEngine {
public:
    explicit DrawnIcon(QString name)
        : mName(std::move(name))
    {
    }

    QIconEngine *clone() const override { return new DrawnIcon(mName); }

    QString iconName() override { return mName; }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State) override
    {
        const QColor color = textColor(mode);
        const QString key = QStringLiteral("icon %1 %2x%3 %4")
                                .arg(mName)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(color.name());
        QPixmap pixmap;
        if (!QPixmapCache::find(key, &pixmap)) {
            pixmap = QPixmap::fromImage(rendered(mName, size, color));
            QPixmapCache::insert(key, pixmap);
        }
        return pixmap;
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal ratio = painter->device()->devicePixelRatio();
        painter->drawPixmap(rect, pixmap(rect.size() * ratio, mode, state));
    }

private:
    QString mName;
};

} // namespace

QIcon icon(const QString &name)
{
    return QFile::exists(pathOf(name)) ? QIcon(new DrawnIcon(name)) : QIcon();
}
