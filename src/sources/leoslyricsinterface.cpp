#include "sources/leoslyricsinterface.h"

#include "sources/lyricspage.h"
#include "text/characterreferences.h"

namespace {

/// A song that is not on the first pages is not there; a site whose pages never end must not be
/// asked for ever.
constexpr int mostResultPages = 20;

} // namespace

void LeosLyricsInterface::startSearch()
{
    searchBy(QStringLiteral("queryArtistTitle"),
             [this](const FetchResult &result) { leoAlbumListCompleted(result); });
}

void LeosLyricsInterface::leoAlbumListCompleted(const FetchResult &result)
{
    const auto usable = usablePage(result);
    if (!usable)
        return;
    ++mResultPages;
    const QString page = LyricsPage::withPlainNewlines(*usable);
    const QList<QStringList> rows = rowsOn(page, QStringLiteral("parseSearchResults"));
    for (const QStringList &row : rows) {
        if (followRow(row, result.url))
            return;
    }
    if (!rows.isEmpty())
        followNextPage(page, result.url);
}

/// A row is: the artist, the title with its link.
bool LeosLyricsInterface::followRow(const QStringList &row, const QUrl &page)
{
    if (row.size() != 2 || !isSongTitle(LyricsPage::simplifiedCell(row[1]))
        || !isListedArtist(LyricsPage::simplifiedCell(row[0])))
        return false;
    return follow(addressOf(LyricsPage::linkBehind(row[1], QStringLiteral("\""))), page,
                  [this](const FetchResult &result) { leoLyricsReceived(result); });
}

void LeosLyricsInterface::followNextPage(const QString &page, const QUrl &url)
{
    if (resources().integer(QStringLiteral("keepLooking")) == 0 || mResultPages >= mostResultPages)
        return;
    if (const auto link = linkOn(page, QStringLiteral("nextResultsPage")))
        follow(addressOf(HVStringExtensions::stringByReplacingAmpersandCodes(*link)), url,
               [this](const FetchResult &result) { leoAlbumListCompleted(result); });
}

std::optional<QString> LeosLyricsInterface::addressOf(const std::optional<QString> &link) const
{
    if (!link || link->isEmpty())
        return std::nullopt;
    return resources().textOrEmpty(QStringLiteral("baseURL")) + *link;
}

void LeosLyricsInterface::leoLyricsReceived(const FetchResult &result)
{
    const auto page = lyricsPage(result);
    if (!page)
        return;
    const auto markup =
        textBetweenOn(*page, QStringLiteral("lyricHead"), QStringLiteral("lyricFoot"));
    if (markup)
        addLyrics(
            LyricsPage::leosLyrics(*markup, resources().textOrEmpty(QStringLiteral("lineBreak"))));
}
