#include "sources/asklyricsinterface.h"

#include "base/log.h"
#include "sources/lyricspage.h"

#include <algorithm>

namespace {

/// As much of a page as helps to see what it was.
constexpr qsizetype longestExcerpt = 500; // UTF-16 units

/// What stands in the first preformatted block, the rest of its opening tag in front; empty where
/// there is none.
QString preformattedOn(const QString &page)
{
    const QString begin = QStringLiteral("<pre ");
    const qsizetype from = page.indexOf(begin);
    const qsizetype to = from < 0 ? -1 : page.indexOf(QLatin1String("</pre>"), from);
    return to < 0 ? QString() : page.mid(from, to - from);
}

} // namespace

void AskLyricsInterface::startSearch()
{
    searchBy(QStringLiteral("queryArtist"),
             [this](const FetchResult &result) { askArtistListCompleted(result); });
}

/// The artist of that very name comes before those whose names merely begin alike: whose songs
/// are read must not depend on the order of a list of "Lanterns" and "Lanterns Trio".
void AskLyricsInterface::askArtistListCompleted(const FetchResult &result)
{
    QList<Entry> artists = entriesOn(result, QStringLiteral("artistListParse"));
    std::stable_partition(artists.begin(), artists.end(),
                          [this](const Entry &artist) { return isSameArtist(artist.name); });
    for (const Entry &artist : std::as_const(artists)) {
        if (isListedArtist(artist.name)
            && follow(linkOf(artist), result.url,
                      [this](const FetchResult &songs) { askSongListCompleted(songs); }))
            return;
    }
}

void AskLyricsInterface::askSongListCompleted(const FetchResult &result)
{
    const QList<Entry> songs = entriesOn(result, QStringLiteral("songListParse"));
    for (const Entry &song : songs) {
        if (isSongTitle(song.name)
            && follow(linkOf(song), result.url,
                      [this](const FetchResult &lyrics) { askLyricsCompleted(lyrics); }))
            return;
    }
}

void AskLyricsInterface::askLyricsCompleted(const FetchResult &result)
{
    const QString page = lyricsPage(result).value_or(QString());
    if (addLyrics(LyricsPage::askLyrics(preformattedOn(page))))
        return;
    qCWarning(logSources).noquote()
        << QStringLiteral("Failed getting lyrics for %1/%2 from %3:\n%4")
               .arg(*artist(), *songTitle(), result.url.toString(),
                    page.left(longestExcerpt).simplified());
}

/// Names and links both stand in a row's first cell.
QList<AskLyricsInterface::Entry> AskLyricsInterface::entriesOn(const FetchResult &result,
                                                               const QString &recipeKey)
{
    const QList<QStringList> rows = rowsOn(usablePage(result).value_or(QString()), recipeKey);
    QList<Entry> entries;
    for (const QStringList &row : rows)
        entries << Entry{LyricsPage::simplifiedCell(row.first()), row.first()};
    return entries;
}

/// A list without a marker of its own has its links in plain attributes.
std::optional<QString> AskLyricsInterface::linkOf(const Entry &entry) const
{
    const auto marked = linkOn(entry.cell, QStringLiteral("linkPrefix"));
    return marked ? marked : LyricsPage::linkBehind(entry.cell, QStringLiteral("href=\""));
}
