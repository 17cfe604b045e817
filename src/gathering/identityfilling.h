#pragma once

#include "gathering/assetledger.h"
#include "gathering/songidentity.h"

/// Whether artist or title are missing, or the title is none that a song could be found by, such as
/// "Track 01".
[[nodiscard]] bool lacksIdentity(const AudioInfoTag &tag);

/// Whether names that are found would stay in the tag, whatever else is desired of the song.
[[nodiscard]] bool identityWouldStay(const AudioInfoTag &tag, Assets gather);

/// What the tag itself says, without such a title.
[[nodiscard]] KnownOfSong knownOfSong(const AudioInfoTag &tag);

/// The names of an identified song in its tag. What the user lets be filled stays; the others stand
/// there for the search alone.
class IdentityFilling {
public:
    /// `gather`: what the user asked for.
    void fill(AudioInfoTag &tag, const SongIdentity &identity, Assets gather, AssetLedger &ledger);
    /// Ends the search: where names were lent, what was there before is there again. Called once,
    /// after fill().
    void giveBack(AudioInfoTag &tag, const AssetLedger &ledger);

private:
    void fillArtist(AudioInfoTag &tag, const QString &artist, AssetLedger &ledger);
    void fillTitle(AudioInfoTag &tag, const QString &title, bool mayStay, AssetLedger &ledger);
    void fillAlbum(AudioInfoTag &tag, const QString &album, AssetLedger &ledger);

    std::optional<QString> mArtistBefore; ///< where it is lent, like the next
    std::optional<QString> mTitleBefore;
    bool mHasLentAlbum = false;
    bool mWasModified = false;
};
