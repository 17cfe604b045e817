#pragma once

#include "sources/releaserecord.h"
#include "sources/releasesearch.h"

/// Albums, years, genres and track titles from the open music database that speaks JSON: one
/// search, then the best release is looked up. A release that is known by its identifier is looked
/// up at once.
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
    void gotCandidates(ReleaseFindings found) override;

private:
    void search();
    void lookUpNext();
    [[nodiscard]] ReleaseCandidate *nextCandidate();
    [[nodiscard]] std::optional<QUrl> addressOf(const QString &release) const;
    void lookUp(const QUrl &address);
    void gotRelease(const FetchResult &result);
    void take(const ReleaseRecord &record);
    void settleForLess();
    void passOverOthers();

    ReleaseFindings mFound;
    qsizetype mNext = 0; ///< of those that fit
    QList<ReleaseRecord> mWithoutSong; ///< that were looked up, the best first
    int mLookUps = 0;
    bool mSearchedByWords = false;
};
