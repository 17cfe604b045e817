#include "sources/towerinterface.h"

#include "text/minorwords.h"
#include "text/queryterms.h"
#include "text/stringextensions.h"

#include <algorithm>

namespace {

/// Markers hold single blanks, however the page breaks its lines.
QString withSingleSpaces(QString page)
{
    page.replace(QLatin1String("\r\n"), QLatin1String(" "));
    const auto end = std::unique(page.begin(), page.end(),
                                 [](QChar one, QChar next) { return one == u' ' && next == u' '; });
    page.truncate(end - page.begin());
    return page;
}

/// What stands in the first quotes from the marker on; a marker may hold the opening one itself.
std::optional<QString> quotedFrom(const QString &cell, const QString &marker)
{
    const qsizetype found = marker.isEmpty() ? -1 : cell.indexOf(marker);
    const qsizetype open = found < 0 ? -1 : cell.indexOf(u'"', found);
    const qsizetype close = open < 0 ? -1 : cell.indexOf(u'"', open + 1);
    return close < 0 ? std::nullopt : std::optional(cell.sliced(open + 1, close - open - 1));
}

} // namespace

void TowerInterface::startSearch()
{
    const std::optional<QString> &title = albumTitle() ? albumTitle() : songTitle();
    if (!artist() || !title)
        return;
    const QString term = HVUtility::stringForPost(
        HVStringExtensions::stringWithoutWords(*title, HVUtility::minorWords()),
        HVUtility::AlphaNumericOnly::No, QStringLiteral("%20"));
    const QString key =
        albumTitle() ? QStringLiteral("queryAlbumName") : QStringLiteral("querySongName");
    if (const auto address = resources().formatted(key, {term}))
        addSearchURL(QUrl(*address),
                     [this](const FetchResult &result) { towerAlbumListCompleted(result); });
}

void TowerInterface::towerAlbumListCompleted(const FetchResult &result)
{
    if (!resources().holds({QStringLiteral("baseURLPrefix"), QStringLiteral("albumLinkPrefix"),
                            QStringLiteral("albumTitleAfter"), QStringLiteral("albumArtistAfter"),
                            QStringLiteral("albumPageListIndicator")}))
        return;
    const auto page = usablePage(result);
    if (!page)
        return;
    addFurtherPages(*page);
    const QList<QStringList> rows = rowsOn(*page, QStringLiteral("parseAlbumList"));
    for (const QStringList &row : rows)
        addAlbumOfRow(row[0]);
}

/// Pages of results go in front of the albums that wait. Each lists the others; none is read
/// twice.
void TowerInterface::addFurtherPages(const QString &page)
{
    const QString indicator = resources().textOrEmpty(QStringLiteral("albumPageListIndicator"));
    if (indicator.isEmpty() || !page.contains(indicator))
        return;
    const QList<QStringList> rows = rowsOn(page, QStringLiteral("parseAlbumPageList"));
    QStringList paths;
    std::for_each(rows.crbegin(), rows.crend(), [&](const QStringList &row) {
        const qsizetype quote = row[0].lastIndexOf(u'"');
        if (quote > 1)
            paths << unescaped(row[0].first(quote));
    });
    paths.removeDuplicates();
    std::for_each(paths.crbegin(), paths.crend(), [&](const QString &path) {
        addSearchURL(
            linkedURL(QStringLiteral("baseURLPrefix"), QStringLiteral("/Music/") + path),
            [this](const FetchResult &result) { towerAlbumListCompleted(result); },
            QueueEnd::Front);
    });
}

/// Albums of any title are read: the list is what the site found for the title.
void TowerInterface::addAlbumOfRow(const QString &cell)
{
    const auto link = quotedFrom(cell, resources().textOrEmpty(QStringLiteral("albumLinkPrefix")));
    if (!link || !shownTextOn(cell, QStringLiteral("albumTitleAfter")))
        return;
    const auto listed = shownTextOn(cell, QStringLiteral("albumArtistAfter"));
    if (isCompilation() || (listed && isListedArtist(*listed)))
        addSearchURL(linkedURL(QStringLiteral("baseURLPrefix"), unescaped(*link)),
                     [this](const FetchResult &result) { towerAlbumCompleted(result); });
}

void TowerInterface::towerAlbumCompleted(const FetchResult &result)
{
    if (auto page = usablePage(result))
        addAlbumOfArtist(createAlbumFromHTMLData(withSingleSpaces(*std::move(page))));
}

std::optional<AlbumInfo> TowerInterface::createAlbumFromHTMLData(const QString &page) const
{
    const auto shownArtist = nameOn(page, QStringLiteral("parseAlbumArtist"));
    const auto title = nameOn(page, QStringLiteral("parseAlbumTitle"));
    if (!shownArtist || !title)
        return std::nullopt;
    AlbumInfo album(shownArtist, title);
    album.setGenres(genreOn(page));
    album.setYear(yearOn(page, {.afterYear1 = 1, .afterYear2 = 1}));
    // Used as it stands, without a prefix.
    const auto artURL = textUpToOn(page, QStringLiteral("parseAlbumArtURL"), QStringLiteral("\""));
    if (artURL && !artURL->isEmpty())
        album.setArtURLString(unescaped(*artURL));
    album.setTrackNames(
        tracksOn(page, *shownArtist, {QStringLiteral(" / "), QStringLiteral(" - ")}));
    album.cleanUpStrings();
    return album;
}
