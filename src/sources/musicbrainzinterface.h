#pragma once

#include "sources/releaserecord.h"
#include "sources/releasesearch.h"

/// Albums, years, genres and track titles from the open music database that speaks JSON: one
/// search, then the best release is looked up.
class MusicBrainzInterface : public ReleaseSearch {
    Q_OBJECT

public:
    static constexpr Assets resourcesPossiblyAvailable =
        AssetAlbumName | AssetYear | AssetSongTitle | AssetTrack | AssetGenre;

    using ReleaseSearch::ReleaseSearch;

    [[nodiscard]] QString className() const override
    {
        return QStringLiteral("MusicBrainzInterface");
    }

protected:
    void startSearch() override;
    void gotCandidates(QList<ReleaseCandidate> candidates) override;

private:
    void search();
    void lookUpNext();
    void lookUp(const QUrl &address);
    void gotRelease(const FetchResult &result);
    void settleForLess();

    QList<ReleaseCandidate> mCandidates; ///< that are still to be looked up, the best first
    std::optional<ReleaseRecord> mWithoutSong; ///< the best release that lacks the song
    int mLookUps = 0;
    bool mSearchedByWords = false;
};
