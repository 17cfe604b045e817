#include "sources/freedbinterface.h"

#include "sources/artistmatch.h"
#include "sources/freedbrecord.h"
#include "text/characterreferences.h"
#include "text/queryterms.h"
#include "text/simplifier.h"
#include "text/stringextensions.h"

namespace {

// The names of the site's form, and what its search button and its "more" button send.
constexpr QLatin1String buttonField{"iButton"};
constexpr QLatin1String searchField{"ifSearch"};
constexpr QLatin1String kindField{"ifFields"};
constexpr QLatin1String firstPageButton{"Search"};
constexpr QLatin1String nextPageButton{">>"};
constexpr QLatin1String albumTitles{"1"};
constexpr QLatin1String songTitles{"2"};

} // namespace

void FreeDBInterface::startSearch()
{
    mGotFirstPageOfResults = false;
    postForm(firstPageButton);
}

/// The artist is never sent: it only chooses among the results.
void FreeDBInterface::postForm(const QString &button)
{
    const QString address = resources().textOrEmpty(QStringLiteral("queryPOST"));
    if (address.isEmpty())
        return;
    QMap<QString, QString> form{{buttonField, button}};
    if (artist() && (albumTitle() || songTitle())) {
        form.insert(searchField, albumTitle() ? *albumTitle() : *songTitle());
        form.insert(kindField, albumTitle() ? albumTitles : songTitles);
    }
    postSearch(QUrl(address), HVUtility::HTTPFromDictionary(form),
               [this](const FetchResult &result) { freedb2SearchComplete(result); });
}

void FreeDBInterface::freedb2SearchComplete(const FetchResult &result)
{
    if (!result.data.isEmpty())
        readResultsPage(pageText(result));
    mGotFirstPageOfResults = true;
}

/// Only a first page asks for a further one, so at most two are read in a search.
void FreeDBInterface::readResultsPage(const QString &page)
{
    const QList<QStringList> rows = rowsOn(page, QStringLiteral("parseAlbumList"));
    if (rows.isEmpty())
        return;
    const QString firstPageMarker = resources().textOrEmpty(QStringLiteral("firstResultsFragment"));
    if (page.contains(firstPageMarker)) {
        if (mGotFirstPageOfResults)
            return; // the site went back to its first page instead of a further one
        const QString more = resources().textOrEmpty(QStringLiteral("moreResultsFragment"));
        if (!more.isEmpty() && page.contains(more))
            postForm(nextPageButton);
    }
    for (const QStringList &row : rows)
        addSearchOfRow(row);
}

/// A row of use is: anything, the disc's identifier, artist and title with a delimiter between.
void FreeDBInterface::addSearchOfRow(const QStringList &row)
{
    const QString delimiter = resources().textOrEmpty(QStringLiteral("albumResultDelimiter"));
    if (row.size() != 3 || delimiter.isEmpty())
        return;
    const QString text = HVStringExtensions::stringByReplacingAmpersandCodes(
        HVStringExtensions::stringWithoutHTMLTags(row[2]));
    const QStringList artistAndTitle = text.split(delimiter);
    if (artistAndTitle.size() != 2 || !isRowOfArtist(artistAndTitle[0]))
        return;
    const QString disc = HVStringExtensions::stringWithoutHTMLTags(row[1]);
    if (const auto address = resources().formatted(QStringLiteral("discInfoURL"), {disc}))
        addSearchURL(QUrl(*address), [this](const FetchResult &result) { gotAlbum(result); });
}

bool FreeDBInterface::isRowOfArtist(const QString &listedArtist) const
{
    return isCompilation()
        || matchesListedArtist({artist(), alternateArtist()},
                               HVUtility::simplifyString(listedArtist.trimmed()),
                               allowSubstrings());
}

void FreeDBInterface::gotAlbum(const FetchResult &result)
{
    if (result.error || result.data.isEmpty())
        return;
    auto album =
        albumWithFreeDBData(result.data, resources().textOrEmpty(QStringLiteral("charset")));
    if (!album || album->name().value_or(QString()).isEmpty())
        queue().removeURLFromCache(result.url); // a broken page is fetched afresh next time
    else if (isAlbumOfArtist(*album))
        addAlbum(*std::move(album));
}

bool FreeDBInterface::isAlbumOfArtist(const AlbumInfo &album) const
{
    return isCompilation()
        || matchesAlbumArtist({artist(), alternateArtist()},
                              HVUtility::simplifyString(album.artist().value_or(QString())),
                              allowSubstrings());
}
