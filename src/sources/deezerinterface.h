#pragma once

#include "sources/releaserecord.h"
#include "sources/releasesource.h"

#include <QJsonArray>

/// Albums and their covers from a music shop that speaks JSON: one search, of albums or, where the
/// album is not known, of tracks; then the best album and its tracks are looked up.
class DeezerInterface : public ReleaseSource {
    Q_OBJECT

public:
    static constexpr Assets resourcesPossiblyAvailable =
        AssetAlbumName | AssetYear | AssetTrack | AssetGenre | AssetArtwork;

    using ReleaseSource::ReleaseSource;

    [[nodiscard]] QString className() const override { return QStringLiteral("DeezerInterface"); }

protected:
    void startSearch() override;

private:
    using Reading = QList<qint64> (*)(const QJsonArray &, const ReleaseWish &);

    void searchAlbums();
    void searchTracks();
    void search(const QString &key, const QString &words, Reading albumsIn);
    void lookUpNext();
    void lookUp(const QUrl &address);
    void gotAlbum(const FetchResult &result);
    void gotTracks(const FetchResult &result);
    void takeAlbum();

    QList<qint64> mFound; ///< albums that are still to be looked up, the best first
    QUrl mAddress; ///< of the album at hand
    QJsonObject mAlbum;
    QJsonArray mTracks;
    int mLookUps = 0;
    int mPages = 0; ///< of the tracks
    bool mSearchedTracks = false;
};
