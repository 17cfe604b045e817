#include "sources/bestcoversinterface.h"

#include "sources/artistmatch.h"
#include "text/simplifier.h"
#include "text/stringextensions.h"

namespace {

/// The page of the artists, or for compilations of the titles, that begin with anything but a
/// letter from a to z.
constexpr QLatin1String otherLetters{"zz"};

QString indexLetter(const QString &name)
{
    const QChar letter = name.isEmpty() ? QChar() : name.front().toLower();
    return letter >= u'a' && letter <= u'z' ? QString(letter) : QString(otherLetters);
}

/// Character references stay: an album with "&amp;" in its row is found only by a song whose tag
/// has it too, as it always was.
QString simplifiedText(const QString &cell)
{
    return HVUtility::simplifyString(HVStringExtensions::stringWithoutHTMLTags(cell));
}

/// What a song asks of a row.
struct Wanted {
    SearchedArtist artist;
    QString title; ///< simplified
    Substrings substrings;
    bool isCompilation;

    /// The site lists compilations with the title in the first cell, where other albums have
    /// the artist.
    [[nodiscard]] bool matches(const QString &first, const QString &second) const
    {
        if (isCompilation)
            return (second == u"various" || second == u"soundtrack")
                && matchesListedTitle(title, first, substrings);
        return matchesListedArtist(artist, first, substrings)
            && matchesListedTitle(title, second, substrings);
    }
};

} // namespace

void BestCoversInterface::startSearch()
{
    if (artist() && albumTitle())
        addIndexSearch(indexLetter(isCompilation() ? *albumTitle() : *artist()),
                       [this](const FetchResult &result) { bcArtistAlbumListCompleted(result); });
}

void BestCoversInterface::bcArtistAlbumListCompleted(const FetchResult &result)
{
    if (resources().textOrEmpty(QStringLiteral("linkBegin")).isEmpty())
        return;
    const auto page = usablePage(result);
    if (!page)
        return;
    const QStringList cells = linkCells(*page);
    for (const QString &cell : cells)
        addAlbumOfLink(cell);
}

/// The third cells of the rows that match.
QStringList BestCoversInterface::linkCells(const QString &page) const
{
    const Wanted wanted{{artist(), alternateArtist()},
                        HVUtility::simplifyString(*albumTitle()),
                        allowSubstrings(),
                        isCompilation()};
    QStringList cells;
    const QList<QStringList> rows = rowsOn(page);
    for (const QStringList &row : rows)
        if (row.size() > 2 && wanted.matches(simplifiedText(row[0]), simplifiedText(row[1])))
            cells << row[2];
    return cells;
}

void BestCoversInterface::addAlbumOfLink(const QString &cell)
{
    const auto path = textUpToOn(cell, QStringLiteral("linkBegin"), QStringLiteral("\""));
    if (path && !path->isEmpty())
        addAlbumWithPicture(resources().textOrEmpty(QStringLiteral("baseURL")), *path);
}
