#include "gathering/choicerecorder.h"

#include "gathering/songfilling.h"

#include <algorithm>
#include <utility>

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

void ChoiceRecorder::answered(const SourceAnswer &answer, const QList<PassedOverAlbum> &passedOver)
{
    mRecord.answers << answer;
    mPassedOver << passedOver;
    if (mRecord.reason == ChoiceReason::NotSearched && answer.wasToBeGiven())
        mRecord.reason = ChoiceReason::NothingFound;
    if (mRecord.reason == ChoiceReason::NothingFound && !passedOver.isEmpty())
        mRecord.reason = ChoiceReason::NoneFits;
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
    else if (!mRound.empty() && mRecord.reason < ChoiceReason::CoverAlone)
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

/// A later search may find again what an earlier one found; it is told of once. What the sources
/// left follows what was looked at.
void ChoiceRecorder::keepRound()
{
    const QList<AlbumCandidate> earlier = mRecord.candidates;
    for (std::size_t i = 0; i < mRound.size(); ++i)
        if (!earlier.contains(mRound[i]))
            keep(mRound[i], mRoundAlbums.at(static_cast<qsizetype>(i)));
    for (const PassedOverAlbum &left : std::exchange(mPassedOver, {})) {
        AlbumCandidate candidate = candidateOf(left.album);
        candidate.fate = left.fate;
        candidate.tracks = left.tracks;
        if (!mRecord.candidates.contains(candidate))
            keep(candidate, left.album);
    }
}

void ChoiceRecorder::keep(const AlbumCandidate &candidate, const AlbumInfo &album)
{
    if (mRecord.candidates.size() >= mostCandidates && candidate.fate != AlbumFate::Chosen)
        return;
    mRecord.candidates << candidate;
    mAlbums << album;
}
