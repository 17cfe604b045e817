#include "sources/musicbrainzinterface.h"

#include <QJsonObject>

void MusicBrainzInterface::startSearch()
{
    if (artist().value_or(QString()).isEmpty())
        return;
    if (const auto known = shelf().addressFor(wish()))
        lookUp(*known);
    else
        search();
}

void MusicBrainzInterface::search()
{
    mSearchedByWords = true;
    searchByWords();
}

void MusicBrainzInterface::gotCandidates(QList<ReleaseCandidate> candidates)
{
    mCandidates = std::move(candidates);
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

/// Of a service that fails nothing further is asked: the next release would be a worse one, and the
/// song would keep it.
void MusicBrainzInterface::gotRelease(const FetchResult &result)
{
    const auto page = jsonPage(result);
    if (!page && result.status != 404)
        return;
    auto record = page ? releaseRecordOf(page->object()) : std::nullopt;
    if (record) {
        shelf().put(*record, result.url);
        const qsizetype medium = record->mediumOf(songTitle(), allowSubstrings());
        if (medium >= 0 || !songTitle())
            return addAlbum(record->albumWithMedium(medium));
        if (!mWithoutSong)
            mWithoutSong = std::move(record);
    }
    if (mSearchedByWords)
        lookUpNext();
    else
        search();
}

/// An album of the right name that lacks the song: the user is told so.
void MusicBrainzInterface::settleForLess()
{
    if (mWithoutSong && albumTitle() && !mWithoutSong->media.isEmpty())
        addAlbum(mWithoutSong->albumWithMedium(0));
}
