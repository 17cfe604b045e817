#include "sources/lyricsandsongsinterface.h"

#include "sources/lyricspage.h"
#include "text/htmlpage.h"
#include "text/simplifier.h"
#include "text/stringextensions.h"

namespace {

constexpr qsizetype cellsOfRow = 4;

} // namespace

void LyricsAndSongsInterface::startSearch()
{
    searchBy(QStringLiteral("queryArtistTitle"),
             [this](const FetchResult &result) { lasAlbumListCompleted(result); });
}

void LyricsAndSongsInterface::lasAlbumListCompleted(const FetchResult &result)
{
    const auto page = usablePage(result);
    if (!page)
        return;
    const QList<QStringList> rows = rowsOn(*page, QStringLiteral("parseSearchResults"));
    for (const QStringList &row : rows) {
        if (followRow(row, result.url))
            return;
    }
}

/// Artist and title stand in the two cells in the middle or, where nothing is in front of them, in
/// the first two; the link is the title's.
bool LyricsAndSongsInterface::followRow(const QStringList &row, const QUrl &page)
{
    if (row.size() != cellsOfRow)
        return false;
    for (const qsizetype artistCell : {1, 0}) {
        const QString &titleCell = row[artistCell + 1];
        if (isOfSong(row[artistCell], titleCell)
            && follow(linkOn(titleCell, QStringLiteral("linkPrefix")), page,
                      [this](const FetchResult &result) { lasLyricsReceived(result); }))
            return true;
    }
    return false;
}

/// Character references stay as they are in these rows, as they always did: a site that writes
/// "&amp;" calls the song otherwise.
bool LyricsAndSongsInterface::isOfSong(const QString &artistCell, const QString &titleCell) const
{
    const auto title = HVUtility::visibleHTMLTextIn(titleCell, 1, QStringLiteral(">"));
    return title && isSongTitle(HVUtility::simplifyString(*title))
        && isListedArtist(
               HVUtility::simplifyString(HVStringExtensions::stringWithoutHTMLTags(artistCell)));
}

void LyricsAndSongsInterface::lasLyricsReceived(const FetchResult &result)
{
    const auto page = lyricsPage(result);
    if (!page)
        return;
    const auto markup =
        textBetweenOn(*page, QStringLiteral("lyricHead"), QStringLiteral("lyricFoot"));
    if (markup)
        addLyrics(LyricsPage::lyricsAndSongsLyrics(
            *markup, resources().textOrEmpty(QStringLiteral("adBegin")),
            resources().textOrEmpty(QStringLiteral("adEnd"))));
}
