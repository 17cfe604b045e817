#include "gui/picturesource.h"

#include "gui/pathdrops.h"

#include <QFileInfo>
#include <QImage>
#include <QMimeData>
#include <QUrl>

#include <algorithm>
#include <array>

namespace {

/// More would not be meant for one album.
constexpr qsizetype mostFiles = 20;

/// As other programs offer them, the bytes that go into songs as they are first.
constexpr std::array pictureFormats{QLatin1String("image/jpeg"), QLatin1String("image/png"),
                                    QLatin1String("image/webp"), QLatin1String("image/gif"),
                                    QLatin1String("image/bmp"),  QLatin1String("image/tiff")};

/// The bytes of the first format that there is; empty without one.
QByteArray encodedPictureIn(const QMimeData &data)
{
    const auto format = std::find_if(pictureFormats.begin(), pictureFormats.end(),
                                     [&data](QLatin1String name) { return data.hasFormat(name); });
    return format == pictureFormats.end() ? QByteArray() : data.data(*format);
}

} // namespace

bool mayHoldPicture(const QMimeData &data)
{
    const QStringList files = localPathsIn(data);
    const bool isFolder = files.size() == 1 && QFileInfo(files.first()).isDir();
    return (!files.isEmpty() && !isFolder) || data.hasImage()
        || std::any_of(pictureFormats.begin(), pictureFormats.end(),
                       [&data](QLatin1String name) { return data.hasFormat(name); });
}

PictureSource picturesIn(const QMimeData &data)
{
    if (const QStringList files = localPathsIn(data); !files.isEmpty())
        return picturesInFiles(files);
    if (const QByteArray bytes = encodedPictureIn(data); mimeTypeBySignature(bytes))
        return [bytes] { return std::vector{pictureForSongs(bytes)}; };
    return [image = qvariant_cast<QImage>(data.imageData())] {
        return std::vector{pictureForSongs(image)};
    };
}

PictureSource picturesInFiles(const QStringList &paths)
{
    return [paths = paths.first(std::min(paths.size(), mostFiles))] {
        std::vector<PictureForSongs> pictures;
        for (const QString &path : paths) {
            pictures.push_back(pictureForSongsInFile(path));
            if (QString &reason = pictures.back().reason; !reason.isEmpty())
                reason = QStringLiteral("%1: %2").arg(path, reason);
        }
        return pictures;
    };
}
