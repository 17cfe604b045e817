#include "sources/musicbrainzinterface.h"

#include "sources/lucenequery.h"
#include "text/simplifier.h"

#include <QJsonArray>

MusicBrainzInterface::MusicBrainzInterface(SiteDefinition resources, HVHTTPQueue &queue,
                                           std::shared_ptr<ReleaseShelf> shelf)
    : WebDBInterface(std::move(resources), queue)
    , mShelf(std::move(shelf))
{
}

ReleaseWish MusicBrainzInterface::wish() const
{
    return {.artist = {artist(), alternateArtist()},
            .album = albumTitle().value_or(QString()),
            .title = HVUtility::simplifyString(songTitle().value_or(QString())),
            .duration = songDuration(),
            .substrings = allowSubstrings(),
            .isCompilation = isCompilation(),
            .minScore = resources().number(QStringLiteral("minScore"))};
}

void MusicBrainzInterface::startSearch()
{
    if (artist().value_or(QString()).isEmpty())
        return;
    if (const auto known = mShelf->addressFor(wish()))
        lookUp(*known);
    else
        searchByWords();
}

/// A compilation goes by many names and artists: the song on it tells it apart.
void MusicBrainzInterface::searchByWords()
{
    mSearchedByWords = true;
    if (albumTitle() && !(isCompilation() && songTitle()))
        searchReleases();
    else
        searchRecordings();
}

void MusicBrainzInterface::searchReleases()
{
    const QString ofArtist = isCompilation() ? QString() : *artist();
    search(QStringLiteral("queryRelease"),
           {luceneTerm(QStringLiteral("release"), *albumTitle()),
            luceneTerm(QStringLiteral("artist"), ofArtist)},
           candidatesOfReleases, QStringLiteral("releases"));
}

void MusicBrainzInterface::searchRecordings()
{
    mSearchedRecordings = true;
    if (!songTitle())
        return;
    search(QStringLiteral("queryRecording"),
           {luceneTerm(QStringLiteral("recording"), *songTitle()),
            luceneTerm(QStringLiteral("artist"), *artist()),
            luceneTerm(QStringLiteral("release"), albumTitle().value_or(QString()))},
           candidatesOfRecordings, QStringLiteral("recordings"));
}

void MusicBrainzInterface::search(const QString &key, const QStringList &terms,
                                  Reading candidatesOf, const QString &listKey)
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
        gotCandidates(candidatesOf(page->object(), wish()));
    });
}

void MusicBrainzInterface::gotCandidates(QList<ReleaseCandidate> candidates)
{
    mCandidates = std::move(candidates);
    if (mCandidates.isEmpty() && !mSearchedRecordings)
        searchRecordings();
    else
        lookUpNext();
}

void MusicBrainzInterface::lookUpNext()
{
    if (mCandidates.isEmpty() || mLookUps >= resources().integer(QStringLiteral("maxLookUps")))
        return settleForLess();
    const ReleaseCandidate next = mCandidates.takeFirst();
    // Editions of one work with as many tracks hold the same ones.
    mCandidates.removeIf([&next](const ReleaseCandidate &each) {
        return each.group == next.group && each.tracks == next.tracks;
    });
    if (const auto address = resources().formatted(QStringLiteral("releaseLookup"), {next.id}))
        lookUp(QUrl(*address));
}

void MusicBrainzInterface::lookUp(const QUrl &address)
{
    ++mLookUps;
    addSearchURL(address, [this](const FetchResult &result) { gotRelease(result); });
}

void MusicBrainzInterface::gotRelease(const FetchResult &result)
{
    const auto page = jsonPage(result);
    auto record = page ? releaseRecordOf(page->object()) : std::nullopt;
    if (record) {
        mShelf->put(*record, result.url);
        const qsizetype medium = record->mediumOf(songTitle(), allowSubstrings());
        if (medium >= 0 || !songTitle())
            return addAlbum(record->albumWithMedium(medium));
        if (!mWithoutSong)
            mWithoutSong = std::move(record);
    }
    if (mSearchedByWords)
        lookUpNext();
    else
        searchByWords();
}

/// An album of the right name that lacks the song: the user is told so.
void MusicBrainzInterface::settleForLess()
{
    if (mWithoutSong && albumTitle() && !mWithoutSong->media.isEmpty())
        addAlbum(mWithoutSong->albumWithMedium(0));
}
