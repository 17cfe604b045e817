#include "demo/coverpictures.h"

#include "demo/samplepictures.h"
#include "text/plainascii.h"

QString fileNameOf(const SampleAlbum &album)
{
    return HVStringExtensions::plainASCIIString(album.name).toLower().replace(u' ', u'-');
}

std::optional<SamplePage> pictureAt(const QString &className, const QString &path,
                                    const std::function<QString(const SampleAlbum &)> &picturePath,
                                    int width)
{
    for (const SampleAlbum &album : sampleAlbumsAt(className))
        if (picturePath(album) == path)
            return SamplePage{"image/jpeg", samplePicture(album, width, PictureFormat::JPEG)};
    return std::nullopt;
}
