#include "gathering/pictureforsongs.h"

#include "gathering/picturereader.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>

namespace {

/// Decoding at this size tells a sound picture from a damaged one at less cost. In pixels.
constexpr QSize trialSize(256, 256);
constexpr int jpegQuality = 92;

PictureForSongs refused(const QString &reason)
{
    return {{}, reason};
}

PictureForSongs tooLarge()
{
    return refused(qtTrId("ErrorPictureTooLarge").arg(mostPictureBytes / (1024 * 1024)));
}

PictureForSongs encoded(const QImage &image, const char *format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, format, format == QByteArrayView("JPEG") ? jpegQuality : -1))
        return refused(qtTrId("ErrorPictureUnreadable"));
    if (bytes.size() > mostPictureBytes)
        return tooLarge();
    return {ID3Image::imageWithData(bytes, mimeTypeBySignature(bytes)), {}};
}

} // namespace

PictureForSongs pictureForSongs(const QByteArray &bytes)
{
    if (bytes.size() > mostPictureBytes)
        return tooLarge();
    PictureReader reader(bytes);
    const QString mimeType = reader.mimeType();
    if (mimeType.isEmpty())
        return refused(qtTrId("ErrorNoPicture"));
    const bool isKnownToPlayers = mimeType == u"image/jpeg" || mimeType == u"image/png";
    const QImage image =
        reader.image(isKnownToPlayers ? reader.size().boundedTo(trialSize) : reader.size());
    if (image.isNull())
        return refused(qtTrId("ErrorPictureUnreadable"));
    if (isKnownToPlayers)
        return {ID3Image::imageWithData(bytes, mimeType), {}};
    const bool wasLossy = mimeType == u"image/webp" && !image.hasAlphaChannel();
    return encoded(image, wasLossy ? "JPEG" : "PNG");
}

PictureForSongs pictureForSongs(const QImage &image)
{
    const bool isTooLarge = qint64(image.width()) * image.height() > mostPicturePixels;
    return image.isNull() || isTooLarge ? refused(qtTrId("ErrorPictureUnreadable"))
                                        : encoded(image, "PNG");
}

PictureForSongs pictureForSongsInFile(const QString &path)
{
    QFile file(path);
    // A pipe or device would never end.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return refused(qtTrId("ErrorCannotOpenForRead"));
    return pictureForSongs(file.read(mostPictureBytes + 1));
}
