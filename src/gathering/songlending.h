#pragma once

#include "gathering/assetledger.h"
#include "gathering/fieldreasons.h"
#include "gathering/librarylending.h"

#include <functional>

/// Fills one song with what others of its album have.
class SongLending {
public:
    using Step = std::function<void()>;

    /// `owner` is whom later turns are for: when it is gone, nothing follows any more. `isStopped`:
    /// whether nothing more is to be applied. All must outlive this object.
    SongLending(LibraryLending &library, QObject *owner, SongFile &song, AssetLedger &ledger,
                FieldReasons &reasons, std::function<bool()> isStopped);

    /// Fills in what is desired and may be lent; `then` follows, at once or on a later turn.
    void lend(const ArtworkLimits &artwork, const Step &then);

private:
    [[nodiscard]] Borrower borrower() const;
    void applyOffers(const LendingOffers &offers);
    void tryNextLender(const Step &then);

    LibraryLending &mLibrary;
    QObject *mOwner;
    SongFile &mSong;
    AssetLedger &mLedger;
    FieldReasons &mReasons;
    std::function<bool()> mIsStopped;
    ArtworkLimits mArtwork;
    SongList mLenders; ///< of pictures that are still to be tried, the next one last
};
