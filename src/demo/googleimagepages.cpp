#include "demo/googleimagepages.h"

#include "demo/samplepictures.h"
#include "text/simplifier.h"

using namespace Qt::StringLiterals;

namespace {

const QString site = u"/GoogleImageInterface/"_s;

/// One cover as several sites show it, each a little paler and larger than the one before.
constexpr int variants = 6;
constexpr int paleness = 4;
constexpr int thumbnailWidth = 100;
constexpr int fullWidth = 600;

/// A picture that the search finds: the number of its album, and which variant it is.
struct FoundPicture {
    std::size_t album = 0;
    int variant = 0;

    [[nodiscard]] QString name() const { return u"%1-%2"_s.arg(album).arg(variant); }
    [[nodiscard]] SamplePage withWidth(int width) const
    {
        return {"image/jpeg",
                samplePicture(sampleAlbums()[album], width + variant, PictureFormat::JPEG,
                              variant * paleness)};
    }
};

/// Nothing for names that the search never gave.
std::optional<FoundPicture> pictureNamed(const QString &name)
{
    const FoundPicture picture{name.section(u'-', 0, 0).toUInt(), name.section(u'-', 1).toInt()};
    const bool isThere =
        picture.album < sampleAlbums().size() && picture.variant >= 0 && picture.variant < variants;
    return isThere ? std::optional(picture) : std::nullopt;
}

/// Compilations are searched for by their title alone.
bool isMeant(const SampleAlbum &album, const QString &simplifiedQuery)
{
    return album.sources.contains(u"GoogleImageInterface"_s)
        && (HVUtility::simplifyString(album.artist + u' ' + album.name) == simplifiedQuery
            || HVUtility::simplifyString(album.name) == simplifiedQuery);
}

/// All variants of a cover, each beside the cover of another album.
std::vector<FoundPicture> picturesOf(std::size_t album)
{
    std::vector<FoundPicture> found;
    for (int variant = 0; variant < variants; ++variant) {
        found.push_back({album, variant});
        found.push_back({(album + 1 + std::size_t(variant)) % sampleAlbums().size(), 0});
    }
    return found;
}

std::vector<FoundPicture> picturesFor(const QString &query)
{
    const QString wanted = HVUtility::simplifyString(query);
    for (std::size_t album = 0; album < sampleAlbums().size(); ++album)
        if (isMeant(sampleAlbums()[album], wanted))
            return picturesOf(album);
    return {};
}

/// The address of a thumbnail ends with that of its picture, in which the port's colon is escaped:
/// the last colon is the one that stands before it.
QString resultsPage(const std::vector<FoundPicture> &pictures, const QString &root)
{
    QString page = u"<html><body><h1>Pictures</h1>\n<script>\n"_s;
    for (const FoundPicture &picture : pictures)
        page += u"picture(\"http://%1thumbs\",\"%2\",\"%3full/%2.jpg\",%4);\n"_s.arg(
            root, picture.name(), QString(root).replace(u':', u"%3A"_s),
            QString::number(fullWidth + picture.variant));
    return page + u"</script></body></html>\n"_s;
}

std::optional<SamplePage> thumbnail(const QString &query)
{
    const auto picture = pictureNamed(query.section(u':', 0, 0));
    return picture ? std::optional(picture->withWidth(thumbnailWidth)) : std::nullopt;
}

/// The site with the largest variant is gone, so that the search has to choose again.
std::optional<SamplePage> fullSize(const QString &path)
{
    const auto picture = pictureNamed(path.section(u'/', 1).section(u'.', 0, 0));
    return picture && picture->variant < variants - 1 ? std::optional(picture->withWidth(fullWidth))
                                                      : std::nullopt;
}

} // namespace

SampleSite googleImagePages()
{
    return {.className = u"GoogleImageInterface"_s,
            .addresses = {{u"queryArtistAndAlbum"_s, u"search?q=%@"_s}},
            .answer = [](const SampleRequest &request) -> std::optional<SamplePage> {
                const QString query = fieldOf(request.query, u"q"_s);
                if (request.path == u"search")
                    return htmlPage(resultsPage(picturesFor(query), request.host + site));
                if (request.path == u"thumbs")
                    return thumbnail(query);
                return request.path.startsWith(u"full/") ? fullSize(request.path) : std::nullopt;
            }};
}
