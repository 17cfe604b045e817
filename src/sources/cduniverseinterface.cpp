#include "sources/cduniverseinterface.h"

#include "sources/artistmatch.h"
#include "sources/cduniversepage.h"
#include "sources/siteaddress.h"
#include "text/characterreferences.h"
#include "text/minorwords.h"
#include "text/queryterms.h"
#include "text/simplifier.h"
#include "text/stringextensions.h"

namespace {

/// The store's way of saying that a title is no record.
constexpr QLatin1String cdAtEnd{" CD"};

/// The link in a cell that holds one up to its text: what stands before the first quote that
/// ends a tag, from the quote before that on if there is one. Where the cell begins within the
/// address, and other attributes follow that, it ends at its own quote.
std::optional<QString> linkOf(const QString &cell)
{
    const qsizetype end = cell.indexOf(QLatin1String("\">"));
    if (end < 0)
        return std::nullopt;
    const QString before = cell.first(end);
    const qsizetype quote = before.indexOf(u'"');
    const bool isWithinAddress = quote > 0 && before[quote - 1] != u'=';
    return isWithinAddress ? before.first(quote) : before.mid(before.lastIndexOf(u'"') + 1);
}

} // namespace

void CDUniverseInterface::startSearch()
{
    if (!artist() || !albumTitle())
        return;
    const QString words = HVStringExtensions::stringWithoutWords(
        isCompilation() ? *albumTitle() : *artist(), HVUtility::minorWords());
    const QString term =
        HVUtility::stringForPost(words, HVUtility::AlphaNumericOnly::Yes, QStringLiteral("%20"));
    const QString key =
        isCompilation() ? QStringLiteral("queryAlbumTitle") : QStringLiteral("queryArtistName");
    if (const auto address = resources().formatted(key, {term}))
        addSearchURL(QUrl(*address),
                     [this](const FetchResult &result) { cdUniverseSearchResults(result); });
}

void CDUniverseInterface::cdUniverseSearchResults(const FetchResult &result)
{
    const auto page = usablePage(result);
    if (!page)
        return;
    const QString severalArtists = resources().textOrEmpty(QStringLiteral("multiMatch"));
    if (!severalArtists.isEmpty() && page->contains(severalArtists))
        readArtistList(*page);
    else if (isPageOfSearched(*page))
        readAlbumList(*page);
}

/// The pages behind the links may be such lists again; none is read twice.
void CDUniverseInterface::readArtistList(const QString &page)
{
    const QList<QStringList> rows = rowsOn(page, QStringLiteral("multiMatchParse"));
    for (const QStringList &row : rows) {
        const auto link = linkOf(row[0]);
        const QString name = unescaped(HVStringExtensions::stringWithoutHTMLTags(row[0]));
        if (link && (isCompilation() || isListedArtist(name)))
            addSearchURL(linkedURL(QStringLiteral("multiURLPrefix"),
                                   HVStringExtensions::stringByReplacingAmpersandCodes(*link)),
                         [this](const FetchResult &found) { cdUniverseSearchResults(found); });
    }
}

/// A search by artist must have led to a page that is headed by the artist, one by album title to
/// a page that is headed by the title.
bool CDUniverseInterface::isPageOfSearched(const QString &page) const
{
    // Without the markers of an album's entry a definition is taken for half made, although
    // nothing is looked for with them.
    if (!resources().holds({QStringLiteral("artistBegin"), QStringLiteral("albumBegin"),
                            QStringLiteral("albumEnd"), QStringLiteral("rootURLPrefix")}))
        return false;
    const auto heading = shownTextOn(page, QStringLiteral("artistBegin"));
    if (!heading || !isCompilation())
        return heading && isListedArtist(*heading);
    return allowSubstrings() == Substrings::Allow
        ? simplifiedNamesOverlap(HVUtility::simplifyString(*heading),
                                 HVUtility::simplifyString(*albumTitle()))
        : HVUtility::isStringSimpleEqual(heading, albumTitle());
}

void CDUniverseInterface::readAlbumList(const QString &page)
{
    const QString title = HVUtility::simplifyString(*albumTitle());
    const QList<QStringList> rows = rowsOn(page, QStringLiteral("albumListParse"));
    for (const QStringList &row : rows) {
        const auto link = linkOf(row[0]);
        const QString name = unescaped(HVStringExtensions::stringWithoutHTMLTags(row[0]));
        if (link && matchesListedName(title, HVUtility::simplifyString(name), allowSubstrings()))
            addSearchURL(linkedURL(QStringLiteral("rootURLPrefix"), unescaped(*link)),
                         [this](const FetchResult &found) { cdUniverseAlbumCompleted(found); });
    }
}

void CDUniverseInterface::cdUniverseAlbumCompleted(const FetchResult &result)
{
    const auto page = usablePage(result);
    if (!page)
        return;
    const bool hasOwnMarkers = resources().integer(QStringLiteral("ownMarkers")) != 0;
    addAlbumOfArtist(hasOwnMarkers ? albumByOwnMarkers(result.data, *page)
                                   : createAlbumWithHTMLData(*page));
}

std::optional<AlbumInfo> CDUniverseInterface::albumByOwnMarkers(QByteArrayView data,
                                                                const QString &page) const
{
    auto album =
        albumWithCDUniverseHTMLData(data, resources().textOrEmpty(QStringLiteral("charset")));
    if (album && album->artist())
        album->setTrackNames(tracksOn(page, *album->artist(), {QStringLiteral(" / ")}));
    return album;
}

std::optional<AlbumInfo> CDUniverseInterface::createAlbumWithHTMLData(const QString &page) const
{
    const auto shownArtist = nameOn(page, QStringLiteral("parseAlbumArtist"));
    auto title = nameOn(page, QStringLiteral("parseAlbumTitle"));
    if (!shownArtist || !title)
        return std::nullopt;
    if (title->endsWith(cdAtEnd))
        title->chop(cdAtEnd.size());
    AlbumInfo album(shownArtist, title);
    album.setGenres(genreOn(page));
    album.setYear(yearOn(page, {.afterYear1 = 2, .afterYear2 = 2}));
    album.setArtURLString(artURLOn(page));
    album.setTrackNames(tracksOn(page, *shownArtist, {QStringLiteral(" / ")}));
    album.cleanUpStrings();
    return album;
}

std::optional<QString> CDUniverseInterface::artURLOn(const QString &page) const
{
    const QString endKey = QStringLiteral("parseAlbumArtURLEnd");
    auto picture =
        textBetweenOn(page, QStringLiteral("parseAlbumArtURLBegin"), endKey, Qt::CaseInsensitive);
    if (!picture)
        return std::nullopt;
    const QString source = QStringLiteral(" src=\"");
    const qsizetype found = picture->indexOf(source, 0, Qt::CaseInsensitive);
    const qsizetype from = found + source.size();
    *picture += resources().textOrEmpty(endKey); // which may begin with the closing quote
    const qsizetype to = picture->indexOf(u'"', from);
    if (found < 0 || to <= from)
        return std::nullopt;
    const QString address = unescaped(picture->sliced(from, to - from));
    return address.startsWith(QLatin1String("http"))
        ? address
        : addressOnSite(resources().textOrEmpty(QStringLiteral("rootURLPrefix")), address);
}
