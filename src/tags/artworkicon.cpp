#include "base/log.h"
#include "base/resources.h"
#include "tags/audioinfotag.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// A picture of more pixels is an attack or a mistake, and would take half a gigabyte to decode.
constexpr qint64 maxPixels = 100'000'000;

using Icon = std::shared_ptr<const QImage>;

/// The last picture that this thread made into an icon and that icon: neighbouring songs share
/// their picture.
struct Memo {
    QByteArray data;
    Icon icon;
};

Memo &theMemo()
{
    thread_local Memo memo;
    return memo;
}

Icon remembered(const QByteArray &data)
{
    const Memo &memo = theMemo();
    return memo.icon && memo.data == data ? memo.icon : nullptr;
}

void remember(const QByteArray &data, const Icon &icon)
{
    theMemo() = {data, icon};
}

/// The size that fits the box, small pictures enlarged, with even sides.
QSize fitted(QSize size, QSizeF box)
{
    const double scale = std::min(box.width() / size.width(), box.height() / size.height());
    const auto side = [scale](int length) {
        const int rounded = static_cast<int>(std::lround(length * scale));
        return rounded - rounded % 2;
    };
    return {side(size.width()), side(size.height())};
}

/// The whole picture in the size that fits the box; null when it cannot be decoded. Formats are
/// told by the first bytes alone and only known ones are tried: others, such as SVG, may name
/// further files.
QImage scaledPicture(QByteArray data, QSizeF box)
{
    const auto mimeType = mimeTypeBySignature(data);
    if (!mimeType)
        return {};
    QBuffer buffer(&data);
    QImageReader reader(&buffer, mimeType->sliced(mimeType->indexOf(u'/') + 1).toLatin1());
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    if (size.isEmpty() || qint64(size.width()) * size.height() > maxPixels)
        return {};
    const QSize scaled = fitted(size, box);
    if (scaled.isEmpty())
        return {};
    reader.setScaledSize(scaled);
    return reader.read();
}

void strokeFrame(QImage &icon)
{
    constexpr double inset = 0.5;
    QPainter painter(&icon);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, 0.5));
    painter.drawRect(QRectF(icon.rect()).adjusted(inset, inset, -inset, -inset));
}

/// Null when neither the picture nor the built-in one can be decoded.
Icon iconOf(const QByteArray &data, QSizeF box)
{
    QImage picture = scaledPicture(data, box);
    if (picture.isNull())
        picture = scaledPicture(
            resourceData(QStringLiteral("unreadable_art.png")).value_or(QByteArray()), box);
    if (picture.isNull())
        return nullptr;
    QImage icon = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    strokeFrame(icon);
    return std::make_shared<const QImage>(std::move(icon));
}

} // namespace

QImage AudioInfoTag::imageIconNoLargerThan(double maxWidth, double maxHeight) const
{
    if (const Icon stored = storedIcon())
        return *stored;
    if (mCachedIcon && (mCachedIcon->width() > maxWidth || mCachedIcon->height() > maxHeight))
        mCachedIcon.reset();
    if (mCachedIcon)
        return *mCachedIcon;
    const QList<ID3Image> pictures = images();
    if (pictures.isEmpty())
        return {};
    const QByteArray data = pictures.front().data;
    // The memo is taken whatever box it was made for (kept: icons have one size everywhere).
    mCachedIcon = remembered(data);
    if (!mCachedIcon) {
        mCachedIcon = iconOf(data, {maxWidth, maxHeight});
        if (!mCachedIcon) {
            qCWarning(logTags).noquote()
                << QStringLiteral("miniImageIcon nil NSImage from %1")
                       .arg(pictures.front().descriptionForLog(ID3Dialect::classic()));
            return {};
        }
        remember(data, mCachedIcon);
    }
    return *mCachedIcon;
}
