#include "gathering/songlending.h"

#include "base/nextturn.h"
#include "gathering/songfilling.h"
#include "tags/audioinfotag.h"

#include <algorithm>
#include <utility>

namespace {

/// How long tags of the library are read at a time: short enough that nobody feels it.
constexpr std::chrono::milliseconds readingSlice{5};

const QLatin1String fromLibrary("library");

} // namespace

SongLending::SongLending(LibraryLending &library, QObject *owner, SongFile &song,
                         AssetLedger &ledger, FieldReasons &reasons,
                         std::function<bool()> isStopped)
    : mLibrary(library)
    , mOwner(owner)
    , mSong(song)
    , mLedger(ledger)
    , mReasons(reasons)
    , mIsStopped(std::move(isStopped))
{
}

void SongLending::lend(const ArtworkLimits &artwork, const Step &then)
{
    mArtwork = artwork;
    if (mIsStopped() || !(mLedger.desired & lendableAssets))
        return then();
    if (!mLibrary.readTagsFor(readingSlice)) {
        onNextTurn(mOwner, [this, then] { lend(mArtwork, then); });
        return;
    }
    LendingOffers offers = mLibrary.offersTo(borrower());
    applyOffers(offers);
    mLenders = std::move(offers.pictures);
    std::reverse(mLenders.begin(), mLenders.end());
    tryNextLender(then);
}

Borrower SongLending::borrower() const
{
    const AudioInfoTag &song = *mSong.infotag();
    return {&mSong,          song.album(),        song.artist(), song.isPartOfCompilation(),
            mLedger.desired, assetsPresent(song), mArtwork};
}

void SongLending::applyOffers(const LendingOffers &offers)
{
    AudioInfoTag &tag = *mSong.infotag();
    if (offers.year)
        fillYear(tag, *offers.year, fromLibrary, mLedger);
    if (offers.genres)
        fillGenres(tag, *offers.genres, fromLibrary, mLedger);
    mReasons.noteSet(mLedger.changed, {.kind = FieldReason::Kind::Lent});
}

void SongLending::tryNextLender(const Step &then)
{
    std::optional<ID3Image> picture;
    while (!picture && !mLenders.empty()) {
        picture = firstPictureOf(*mLenders.back());
        mLenders.pop_back();
    }
    if (!picture)
        return then();
    const auto gotPicture = [this, then,
                             data = picture->data](const std::optional<AdjustedImage> &adjusted) {
        if (mIsStopped())
            return then();
        if (!adjusted || !fillArtwork(*mSong.infotag(), *adjusted, fromLibrary, mLedger))
            return tryNextLender(then);
        FieldReason reason = pictureReason(data, adjusted, mArtwork);
        reason.kind = FieldReason::Kind::Lent;
        mReasons.notePicture(reason);
        then();
    };
    adjustImageInBackground(picture->data, mArtwork, mOwner, gotPicture);
}
