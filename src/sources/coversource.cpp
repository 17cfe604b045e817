#include "sources/coversource.h"

#include "sources/siteaddress.h"

void CoverSource::addIndexSearch(const QString &letter, Handler returnMethod)
{
    const QString site = resources().textOrEmpty(QStringLiteral("baseURL"));
    const auto path = resources().formatted(QStringLiteral("query"), {letter});
    if (!site.isEmpty() && path)
        addSearchURL(QUrl(site + *path), std::move(returnMethod));
}

void CoverSource::addAlbumWithPicture(const QString &prefix, const QString &path)
{
    const auto address = addressOnSite(prefix, path);
    if (!address)
        return;
    AlbumInfo album(artist(), albumTitle());
    album.setArtURLString(*address);
    addAlbum(std::move(album));
}
