#include "gathering/choicerecorder.h"

#include "gathering/songfilling.h"

#include <algorithm>

namespace {

std::optional<QString> shortened(const std::optional<QString> &text)
{
    return text ? std::optional(text->left(ChoiceRecorder::longestText)) : std::nullopt;
}

AlbumCandidate candidateOf(const AlbumInfo &album)
{
    return {.source = album.sourceInterfaceName(),
            .album = shortened(album.name()),
            .artist = shortened(album.artist()),
            .year = shortened(album.year()),
            .tracks = album.numberOfTracks(),
            .hasArtwork = album.artURLString().has_value(),
            .score = album.score()};
}

ChoiceReason reasonOfMethod(AlbumPick method)
{
    switch (method) {
    case AlbumPick::EarliestYear:
        return ChoiceReason::EarliestYear;
    case AlbumPick::MostAgreement:
        return ChoiceReason::MostAgreement;
    case AlbumPick::Best:
        return ChoiceReason::HighestScore;
    case AlbumPick::None:
        break;
    }
    return ChoiceReason::NoMethod;
}

ChoiceReason reasonOf(qsizetype left, std::size_t found, AlbumPick method,
                      const AlbumChoice &choice, bool isOnAlbum)
{
    if (choice.problem)
        return ChoiceReason::NoUsableYear;
    if (choice.album && !isOnAlbum)
        return ChoiceReason::SongNotOnAlbum;
    if (left > 1)
        return reasonOfMethod(method);
    return found == 1 ? ChoiceReason::OnlyAlbum : ChoiceReason::LastLeft;
}

} // namespace

void ChoiceRecorder::answered(const SourceAnswer &answer)
{
    mRecord.answers << answer;
    if (mRecord.reason == ChoiceReason::NotSearched)
        mRecord.reason = ChoiceReason::NothingFound;
}

void ChoiceRecorder::begin(AlbumList &albums, const AlbumList &covers)
{
    mRound.clear();
    mRoundAlbums.clear();
    for (AlbumInfo &album : albums) {
        if (carriesOnlyLyrics(album))
            continue;
        mRecord.told |= assetsToldBy(album);
        album.setCandidateNumber(static_cast<int>(mRound.size()));
        mRound.push_back(candidateOf(album));
        mRoundAlbums << album;
    }
    mFound = mRound.size();
    for (const AlbumInfo &cover : covers) {
        mRecord.told |= AssetArtwork;
        mRound.push_back(candidateOf(cover));
        mRound.back().fate = AlbumFate::CoverAlone;
        mRoundAlbums << cover;
    }
}

void ChoiceRecorder::dropped(const AlbumInfo &album, AlbumFate fate)
{
    const int number = album.candidateNumber();
    if (number >= 0)
        mRound[static_cast<std::size_t>(number)].fate = fate;
}

void ChoiceRecorder::end(const AlbumList &left, AlbumPick method, const AlbumChoice &choice,
                         bool isOnAlbum)
{
    if (mRound.empty())
        return;
    for (const AlbumInfo &album : left)
        if (album.candidateNumber() >= 0)
            mRoundAlbums[album.candidateNumber()] = album;
    if (choice.album) {
        for (const AlbumInfo &album : left)
            dropped(album, AlbumFate::NotPicked);
        dropped(*choice.album, isOnAlbum ? AlbumFate::Chosen : AlbumFate::SongNotOnAlbum);
    }
    if (mFound > 0)
        conclude({reasonOf(left.size(), mFound, method, choice, isOnAlbum),
                  choice.album ? shortened(choice.album->name()) : std::nullopt,
                  static_cast<int>(mFound), static_cast<int>(left.size())});
    else if (mRecord.reason == ChoiceReason::NothingFound)
        conclude({ChoiceReason::CoverAlone, mRound.front().album, 0, 0});
    keepRound();
}

void ChoiceRecorder::conclude(const AlbumVerdict &verdict)
{
    mLatest = verdict;
    if (!mRecord.isChosen()) // the first album that was chosen is the one to explain
        static_cast<AlbumVerdict &>(mRecord) = mLatest;
}

void ChoiceRecorder::taken(const AlbumInfo &album)
{
    mLatest = {ChoiceReason::TakenByUser, shortened(album.name()), 1, 1};
    static_cast<AlbumVerdict &>(mRecord) = mLatest;
}

/// A later search may find again what an earlier one found; it is told of once.
void ChoiceRecorder::keepRound()
{
    QList<AlbumCandidate> &kept = mRecord.candidates;
    const QList<AlbumCandidate> earlier = kept;
    for (std::size_t i = 0; i < mRound.size(); ++i) {
        const AlbumCandidate &candidate = mRound[i];
        const bool hasRoom = kept.size() < mostCandidates || candidate.fate == AlbumFate::Chosen;
        if (!hasRoom || earlier.contains(candidate))
            continue;
        kept << candidate;
        mAlbums << mRoundAlbums.at(static_cast<qsizetype>(i));
    }
}
