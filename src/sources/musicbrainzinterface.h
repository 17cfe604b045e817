#pragma once

#include "gathering/webdbinterface.h"
#include "sources/releaserecord.h"
#include "sources/releaseshelf.h"

/// Albums, years, genres and track titles from the open music database that speaks JSON: one
/// search, of the song's recordings or, where the album is known, of releases, which is the same
/// for all songs of the album; then the best release is looked up.
class MusicBrainzInterface : public WebDBInterface {
    Q_OBJECT

public:
    static constexpr Assets resourcesPossiblyAvailable =
        AssetAlbumName | AssetYear | AssetSongTitle | AssetTrack | AssetGenre;

    /// `shelf` is shared by all searches of a run.
    MusicBrainzInterface(SiteDefinition resources, HVHTTPQueue &queue,
                         std::shared_ptr<ReleaseShelf> shelf);

    [[nodiscard]] QString className() const override
    {
        return QStringLiteral("MusicBrainzInterface");
    }

protected:
    void startSearch() override;

private:
    using Reading = QList<ReleaseCandidate> (*)(const QJsonObject &, const ReleaseWish &);

    [[nodiscard]] ReleaseWish wish() const;
    void searchByWords();
    void searchReleases();
    void searchRecordings();
    void search(const QString &key, const QStringList &terms, Reading candidatesOf,
                const QString &listKey);
    void gotCandidates(QList<ReleaseCandidate> candidates);
    void lookUpNext();
    void lookUp(const QUrl &address);
    void gotRelease(const FetchResult &result);
    void settleForLess();

    std::shared_ptr<ReleaseShelf> mShelf;
    QList<ReleaseCandidate> mCandidates; ///< that are still to be looked up, the best first
    std::optional<ReleaseRecord> mWithoutSong; ///< the best release that lacks the song
    int mLookUps = 0;
    bool mSearchedByWords = false;
    bool mSearchedRecordings = false;
};
