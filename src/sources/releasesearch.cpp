#include "sources/releasesearch.h"

#include "sources/lucenequery.h"

#include <QJsonArray>

#include <utility>

std::optional<QUrl> ReleaseSearch::addressOnShelf() const
{
    return isKnownByAlbum() ? std::nullopt : shelf().addressFor(wish());
}

void ReleaseSearch::searchByWords()
{
    if (isKnownByAlbum())
        searchReleases();
    else
        searchRecordings();
}

void ReleaseSearch::searchReleases()
{
    const QString ofArtist = isCompilation() ? QString() : artist().value_or(QString());
    search(QStringLiteral("queryRelease"),
           {luceneTerm(QStringLiteral("release"), *albumTitle()),
            luceneTerm(QStringLiteral("artist"), ofArtist)},
           candidatesOfReleases, QStringLiteral("releases"));
}

void ReleaseSearch::searchRecordings()
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

void ReleaseSearch::search(const QString &key, const QStringList &terms, Reading candidatesOf,
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
        ReleaseFindings found = candidatesOf(page->object(), wish());
        found.unfit = std::exchange(mUnfit, {}) + found.unfit;
        if (!found.fitting.isEmpty() || mSearchedRecordings || !songTitle())
            return gotCandidates(std::move(found));
        mUnfit = std::move(found.unfit);
        searchRecordings();
    });
}
