#include "sources/musicbrainzinterface.h"

#include <QJsonObject>

void MusicBrainzInterface::startSearch()
{
    if (!identifiers().release.isEmpty()) {
        if (const auto address = addressOf(identifiers().release))
            lookUp(*address);
        return;
    }
    if (artist().value_or(QString()).isEmpty())
        return;
    if (const auto known = addressOnShelf())
        lookUp(*known);
    else
        search();
}

void MusicBrainzInterface::search()
{
    mSearchedByWords = true;
    searchByWords();
}

void MusicBrainzInterface::gotCandidates(ReleaseFindings found)
{
    mFound = std::move(found);
    lookUpNext();
}

void MusicBrainzInterface::lookUpNext()
{
    const bool mayLookUp = mLookUps < resources().integer(QStringLiteral("maxLookUps"));
    const ReleaseCandidate *next = mayLookUp ? nextCandidate() : nullptr;
    if (!next)
        return settleForLess();
    if (const auto address = addressOf(next->id))
        lookUp(*address);
}

/// Editions of one work with as many tracks hold the same ones.
ReleaseCandidate *MusicBrainzInterface::nextCandidate()
{
    QList<ReleaseCandidate> &fitting = mFound.fitting;
    while (mNext < fitting.size() && fitting[mNext].fate)
        ++mNext;
    if (mNext == fitting.size())
        return nullptr;
    ReleaseCandidate &next = fitting[mNext++];
    for (qsizetype i = mNext; i < fitting.size(); ++i)
        if (fitting[i].group == next.group && fitting[i].tracks == next.tracks)
            fitting[i].fate = AlbumFate::OtherEdition;
    return &next;
}

std::optional<QUrl> MusicBrainzInterface::addressOf(const QString &release) const
{
    const auto address = resources().formatted(QStringLiteral("releaseLookup"), {release});
    return address ? std::optional(QUrl(*address)) : std::nullopt;
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
    const auto record = page ? releaseRecordOf(page->object()) : std::nullopt;
    if (record) {
        shelf().put(*record, result.url,
                    mNext > 0 ? mFound.fitting[mNext - 1].knownSince() : QString());
        if (!identifiers().release.isEmpty() || !record->lacks(soughtTrack()))
            return take(*record);
        mWithoutSong << *record;
    }
    if (mSearchedByWords)
        lookUpNext();
    else if (identifiers().release.isEmpty())
        search();
}

void MusicBrainzInterface::take(const ReleaseRecord &record)
{
    addAlbum(record.albumWith(record.mediumFor(soughtTrack())));
    passOverOthers();
}

/// An album of the right name that lacks the song: the user is told so.
void MusicBrainzInterface::settleForLess()
{
    if (!mWithoutSong.isEmpty() && albumTitle() && !mWithoutSong.first().media.isEmpty()) {
        const ReleaseRecord record = mWithoutSong.takeFirst();
        addAlbum(
            record.albumWith(songTitle() ? record.media.first() : record.mediumFor(soughtTrack())));
    }
    passOverOthers();
}

/// What was found besides is told of, with the reason why it was left.
void MusicBrainzInterface::passOverOthers()
{
    for (const ReleaseRecord &record : std::as_const(mWithoutSong))
        passOver({record.albumWith({}), AlbumFate::SongNotOnAlbum,
                  static_cast<int>(record.allInARow().titles.size())});
    const bool hasBest = mNext > 0;
    for (qsizetype i = 0; i < mFound.fitting.size(); ++i) {
        const ReleaseCandidate &each = mFound.fitting[i];
        if (i < mNext && !each.fate)
            continue; // it was looked up
        const AlbumFate behind =
            hasBest ? fateBehind(mFound.fitting[mNext - 1], each) : AlbumFate::BehindOthers;
        passOver({listedAlbum(each), each.fate.value_or(behind), each.tracks});
    }
    for (const ReleaseCandidate &each : std::as_const(mFound.unfit))
        passOver({listedAlbum(each), *each.fate, each.tracks});
}
