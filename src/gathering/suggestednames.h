#pragma once

#include "gathering/albuminfo.h"
#include "gathering/assetledger.h"
#include "gathering/pathnames.h"
#include "gathering/sourcesearches.h"

/// Names that its path suggests for a song that has none: sources that search by such names are
/// asked with them, the others as if they were not there. Artist and title stand in the tag while
/// sources are asked. Where one of them knows such a song, what the user lets be filled stays.
class SuggestedNames {
public:
    /// Puts in what the tag lacks, if any source of the list searches by it.
    void lend(AudioInfoTag &tag, const QString &path, const SiteDefinitions &definitions,
              const AssetLedger &ledger);
    /// What `source` is to be asked, of what the tag says now.
    [[nodiscard]] SearchRequest requestFor(const QString &source, SearchRequest request) const;

    /// The album is the song's.
    void noteAlbum(const AlbumInfo &album, const AudioInfoTag &tag, Substrings allowSubstrings);
    /// Ends the search: names that no source knows are taken out again. `gather`: what the user
    /// asked for.
    void settle(AudioInfoTag &tag, Assets gather, AssetLedger &ledger);

private:
    void settleArtist(AudioInfoTag &tag, const QString &source, AssetLedger &ledger) const;
    void settleTitle(AudioInfoTag &tag, const QString &source, bool mayStay,
                     AssetLedger &ledger) const;

    QStringList mSources; ///< those that search by such names
    QString mPath;
    PathNames mNames; ///< as far as they are used, later as a source spells them
    SearchRequest mOwn; ///< by the names of the tag alone
    std::optional<QString> mArtistBefore;
    std::optional<QString> mTitleBefore; ///< of its own
    QString mKnowingSource; ///< class name; empty as long as none knows the song
    bool mWasModified = false;
};
