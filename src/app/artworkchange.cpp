#include "app/artworkchange.h"

#include <QtGlobal>

#include <algorithm>
#include <array>

namespace {

constexpr std::array pictureTypes{
    QT_TRID_NOOP("PictureOther"),         QT_TRID_NOOP("PictureFileIcon"),
    QT_TRID_NOOP("PictureOtherIcon"),     QT_TRID_NOOP("PictureFrontCover"),
    QT_TRID_NOOP("PictureBackCover"),     QT_TRID_NOOP("PictureLeaflet"),
    QT_TRID_NOOP("PictureMedium"),        QT_TRID_NOOP("PictureLeadArtist"),
    QT_TRID_NOOP("PictureArtist"),        QT_TRID_NOOP("PictureConductor"),
    QT_TRID_NOOP("PictureBand"),          QT_TRID_NOOP("PictureComposer"),
    QT_TRID_NOOP("PictureLyricist"),      QT_TRID_NOOP("PictureLocation"),
    QT_TRID_NOOP("PictureRecording"),     QT_TRID_NOOP("PicturePerformance"),
    QT_TRID_NOOP("PictureScreen"),        QT_TRID_NOOP("PictureFish"),
    QT_TRID_NOOP("PictureIllustration"),  QT_TRID_NOOP("PictureBandLogo"),
    QT_TRID_NOOP("PicturePublisherLogo"),
};

auto sameDataAs(const ID3Image &image)
{
    return [&image](const ID3Image &other) { return other.data == image.data; };
}

bool hasFrontCover(const QList<ID3Image> &images)
{
    return std::any_of(images.begin(), images.end(), [](const ID3Image &image) {
        return image.pictureType == ArtworkChange::frontCover;
    });
}

} // namespace

QList<ID3Image> ArtworkChange::withAdded(QList<ID3Image> images, const QList<ID3Image> &added)
{
    for (ID3Image image : added) {
        if (std::any_of(images.begin(), images.end(), sameDataAs(image)))
            continue;
        if (!hasFrontCover(images))
            image.pictureType = frontCover;
        images << image;
    }
    return images;
}

QList<ID3Image> ArtworkChange::withReplaced(QList<ID3Image> images,
                                            const std::optional<ID3Image> &shown, ID3Image by)
{
    if (!shown)
        return withAdded({}, {by});
    for (ID3Image &image : images)
        if (image.data == shown->data) {
            by.pictureType = image.pictureType;
            image = by;
        }
    return images;
}

QList<ID3Image> ArtworkChange::without(QList<ID3Image> images, const ID3Image &shown)
{
    images.removeIf(sameDataAs(shown));
    return images;
}

QString fileSuffixOf(const ID3Image &image)
{
    const QString type = mimeTypeBySignature(image.data).value_or(QString()).section(u'/', 1);
    return type == u"jpeg" ? QStringLiteral("jpg") : type;
}

const char *textIDOfPictureType(int pictureType)
{
    const bool isKnown = pictureType >= 0 && pictureType < static_cast<int>(pictureTypes.size());
    return pictureTypes[isKnown ? static_cast<std::size_t>(pictureType) : 0];
}
