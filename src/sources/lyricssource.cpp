#include "sources/lyricssource.h"

#include "sources/lyricspage.h"
#include "text/minorwords.h"
#include "text/queryterms.h"
#include "text/simplifier.h"
#include "text/stringextensions.h"

namespace {

/// Longer texts are no song's words, and would fill the song's file.
constexpr qsizetype longestLyrics = 200'000; // UTF-16 units

/// Servers refuse longer addresses.
constexpr qsizetype longestLink = 4096; // UTF-16 units

/// Letters and digits alone, so that a title such as "Q&A" does not begin another field of the
/// query.
QString queryTerm(const QString &words)
{
    return HVUtility::stringForPost(
        HVStringExtensions::stringWithoutWords(words, HVUtility::minorWords()),
        HVUtility::AlphaNumericOnly::Yes, QStringLiteral("+"));
}

bool isOfTheWeb(const QUrl &url)
{
    return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}

} // namespace

bool LyricsSource::knowsSong()
{
    mWantedTitle = HVUtility::simplifyString(songTitle().value_or(QString()));
    mWantedArtist = SearchedArtist(artist(), alternateArtist());
    return !mWantedTitle.isEmpty() && !mWantedArtist.name.isEmpty();
}

void LyricsSource::searchBy(const QString &queryKey, Handler returnMethod)
{
    if (!knowsSong())
        return;
    const QStringList terms{queryTerm(*artist()), queryTerm(*songTitle())};
    if (const auto address = resources().formatted(queryKey, terms))
        addSearchURL(QUrl(*address), std::move(returnMethod));
}

bool LyricsSource::isSongTitle(const QString &listed) const
{
    return listed == mWantedTitle;
}

bool LyricsSource::isListedArtist(const QString &listed) const
{
    return matchesListedArtist(mWantedArtist, listed, allowSubstrings());
}

bool LyricsSource::isSameArtist(const QString &listed) const
{
    return matchesAlbumArtist(mWantedArtist, listed, Substrings::Refuse);
}

bool LyricsSource::follow(const std::optional<QString> &link, const QUrl &ofPage,
                          Handler returnMethod)
{
    if (!link || link->isEmpty() || link->size() > longestLink)
        return false;
    const QUrl url = ofPage.resolved(QUrl(*link));
    const int before = totalSearches();
    if (isOfTheWeb(url))
        addSearchURL(url, std::move(returnMethod));
    return totalSearches() > before;
}

std::optional<QString> LyricsSource::lyricsPage(const FetchResult &result)
{
    if (!usablePage(result))
        return std::nullopt;
    return LyricsPage::decoded(result.data, resources().textOrEmpty(QStringLiteral("charset")));
}

bool LyricsSource::addLyrics(const QString &lyrics)
{
    if (lyrics.isEmpty() || lyrics.size() > longestLyrics)
        return false;
    // The site does not tell which album the song is on, so the album has no name.
    AlbumInfo album(artist(), std::nullopt);
    album.setLyrics(lyrics, *songTitle());
    addAlbum(std::move(album));
    return true;
}

void LyricsSource::addInstrumental()
{
    AlbumInfo album(artist(), std::nullopt);
    album.setIsInstrumental(true);
    addAlbum(std::move(album));
}
