#include "gathering/picturereader.h"

#include "tags/id3image.h"

#include <QPainter>

namespace {

/// What 100 megapixels of 32 bits take, in MB: what a decoder may allocate.
constexpr int maxDecodedMegabytes = 400;

} // namespace

PictureReader::PictureReader(const QByteArray &picture, qint64 maxPixels)
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
    const QSize size = mReader.size();
    if (!size.isEmpty() && qint64(size.width()) * size.height() <= maxPixels)
        mSize = size;
}

QImage PictureReader::image(QSize scaledSize)
{
    if (!mSize.isValid())
        return {};
    if (scaledSize != mSize)
        mReader.setScaledSize(scaledSize);
    return mReader.read();
}

QImage onBlack(const QImage &image)
{
    QImage canvas(image.size(), QImage::Format_RGB32);
    canvas.fill(Qt::black);
    QPainter(&canvas).drawImage(0, 0, image);
    return canvas;
}
