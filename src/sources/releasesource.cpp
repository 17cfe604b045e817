#include "sources/releasesource.h"

#include "sources/lucenequery.h"
#include "text/simplifier.h"

#include <QJsonArray>

ReleaseSource::ReleaseSource(SiteDefinition resources, HVHTTPQueue &queue,
                             std::shared_ptr<ReleaseShelf> shelf)
    : WebDBInterface(std::move(resources), queue)
    , mShelf(std::move(shelf))
{
}

ReleaseWish ReleaseSource::wish() const
{
    return {.artist = {artist(), alternateArtist()},
            .album = albumTitle().value_or(QString()),
            .title = HVUtility::simplifyString(songTitle().value_or(QString())),
            .duration = songDuration(),
            .substrings = allowSubstrings(),
            .isCompilation = isCompilation(),
            .minScore = resources().number(QStringLiteral("minScore"))};
}

/// A compilation goes by many names and artists: the song on it tells it apart.
void ReleaseSource::searchByWords()
{
    if (albumTitle() && !(isCompilation() && songTitle()))
        searchReleases();
    else
        searchRecordings();
}

void ReleaseSource::searchReleases()
{
    const QString ofArtist = isCompilation() ? QString() : artist().value_or(QString());
    search(QStringLiteral("queryRelease"),
           {luceneTerm(QStringLiteral("release"), *albumTitle()),
            luceneTerm(QStringLiteral("artist"), ofArtist)},
           candidatesOfReleases, QStringLiteral("releases"));
}

void ReleaseSource::searchRecordings()
{
    mSearchedRecordings = true;
    if (!songTitle())
        return;
    search(QStringLiteral("queryRecording"),
           {luceneTerm(QStringLiteral("recording"), *songTitle()),
            luceneTerm(QStringLiteral("artist"), artist().value_or(QString())),
            luceneTerm(QStringLiteral("release"), albumTitle().value_or(QString()))},
           candidatesOfRecordings, QStringLiteral("recordings"));
}

void ReleaseSource::search(const QString &key, const QStringList &terms, Reading candidatesOf,
                           const QString &listKey)
{
    const auto address = resources().formatted(key, {luceneQuery(terms)});
    if (!address)
        return;
    addSearchURL(QUrl(*address), [=, this](const FetchResult &result) {
        const auto page = jsonPage(result);
        if (!page)
            return;
        if (page->object()[listKey].toArray().isEmpty())
            keepForThisRun(result);
        QList<ReleaseCandidate> candidates = candidatesOf(page->object(), wish());
        if (candidates.isEmpty() && !mSearchedRecordings)
            searchRecordings();
        else
            gotCandidates(std::move(candidates));
    });
}
