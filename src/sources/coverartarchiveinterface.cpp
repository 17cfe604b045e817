#include "sources/coverartarchiveinterface.h"

#include "sources/picturesizes.h"
#include "sources/releaserecord.h"

#include <QJsonArray>

#include <algorithm>
#include <array>

namespace {

struct Thumbnail {
    QLatin1String name;
    int width; ///< pixels
};

/// Old listings know the first two names only, and no third size.
constexpr std::array thumbnails{
    Thumbnail{QLatin1String("small"), 250}, Thumbnail{QLatin1String("large"), 500},
    Thumbnail{QLatin1String("250"), 250},   Thumbnail{QLatin1String("500"), 500},
    Thumbnail{QLatin1String("1200"), 1200},
};

/// Originals are scans of any size, and of any kind: some are documents.
PictureSizes sizesOf(const QJsonValue &image)
{
    PictureSizes sizes;
    const QString original = image[QLatin1String("image")].toString();
    if (!original.isEmpty() && !original.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive))
        sizes.insert(originalWidth, original);
    const QJsonValue listed = image[QLatin1String("thumbnails")];
    for (const auto &[name, width] : thumbnails)
        if (const QString address = listed[name].toString(); !address.isEmpty())
            sizes.insert(width, address);
    return sizes;
}

/// None where no front is listed.
PictureSizes frontOf(const QJsonObject &listing)
{
    const QJsonArray images = listing[QLatin1String("images")].toArray();
    const auto front = std::find_if(images.begin(), images.end(), [](const QJsonValue &image) {
        return image[QLatin1String("front")].toBool();
    });
    return front == images.end() ? PictureSizes() : sizesOf(*front);
}

/// Listings that were stored long ago name the archive in the clear; none leads elsewhere.
std::optional<QUrl> addressInArchive(const QString &listed, const QUrl &archive)
{
    QUrl address(listed);
    if (address.host() != archive.host())
        return std::nullopt;
    address.setScheme(archive.scheme());
    address.setPort(archive.port());
    return address;
}

} // namespace

CoverArtArchiveInterface::CoverArtArchiveInterface(SiteDefinition resources, HVHTTPQueue &queue,
                                                   std::shared_ptr<ReleaseShelf> shelf,
                                                   std::shared_ptr<EmptyListings> emptyListings)
    : ReleaseSearch(std::move(resources), queue, std::move(shelf))
    , mEmptyListings(std::move(emptyListings))
{
}

/// Without the name of the album its pictures cannot be told from those of others with the song.
void CoverArtArchiveInterface::startSearch()
{
    if (!identifiers().isEmpty())
        return askFor(identifiers());
    if (!albumTitle() || artist().value_or(QString()).isEmpty())
        return;
    if (const auto known = addressOnShelf())
        addSearchURL(*known, [this](const FetchResult &result) { gotRelease(result); });
    else
        searchByWords();
}

void CoverArtArchiveInterface::gotRelease(const FetchResult &result)
{
    const auto page = jsonPage(result);
    if (const auto record = page ? releaseRecordOf(page->object()) : std::nullopt)
        askFor(record->identifiers);
}

void CoverArtArchiveInterface::gotCandidates(ReleaseFindings found)
{
    if (!found.fitting.isEmpty())
        askFor({found.fitting.first().id, found.fitting.first().group});
}

/// The pictures of the very release, else of any of its editions.
void CoverArtArchiveInterface::askFor(const ReleaseIdentifiers &album)
{
    const auto add = [this](const QString &key, const QString &identifier) {
        const auto address = resources().formatted(key, {identifier});
        if (address && !identifier.isEmpty())
            mListings << QUrl(*address);
    };
    add(QStringLiteral("releaseListing"), album.hasNoFront ? QString() : album.release);
    add(QStringLiteral("groupListing"), album.releaseGroup);
    askNext();
}

void CoverArtArchiveInterface::askNext()
{
    mListings.removeIf([this](const QUrl &each) { return mEmptyListings->contains(each); });
    if (!mListings.isEmpty())
        addSearchURL(mListings.takeFirst(),
                     [this](const FetchResult &result) { gotListing(result); });
}

/// A service that fails is not asked for more.
void CoverArtArchiveInterface::gotListing(const FetchResult &result)
{
    const auto page = jsonPage(result);
    if (!page && result.status != 404 && result.status != 400)
        return;
    const float width = std::max(maximumImageWidth(), minimumAcceptableImageSize());
    const auto listed = pictureNearestAbove(page ? frontOf(page->object()) : PictureSizes(), width);
    if (const auto picture = addressInArchive(listed.value_or(QString()), result.url)) {
        AlbumInfo album(artist(), albumTitle());
        album.setArtURLString(picture->toString(QUrl::FullyEncoded));
        album.setIsCoverAlone(true);
        return addAlbum(std::move(album));
    }
    mEmptyListings->insert(result.url);
    askNext();
}
