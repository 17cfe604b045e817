#pragma once

#include "gathering/webdbinterface.h"

/// Albums, years, genres and track titles from an online CD track database: its search form is
/// posted with the album or song title, the rows of the right artist are kept, and each one's
/// disc record is read.
class FreeDBInterface : public WebDBInterface {
    Q_OBJECT

public:
    static constexpr Assets resourcesPossiblyAvailable =
        AssetAlbumName | AssetYear | AssetSongTitle | AssetTrack | AssetGenre;

    using WebDBInterface::WebDBInterface;

    [[nodiscard]] QString className() const override { return QStringLiteral("FreeDBInterface"); }

protected:
    void startSearch() override;

private:
    void postForm(const QString &button);
    void freedb2SearchComplete(const FetchResult &result);
    void readResultsPage(const QString &page);
    void addSearchOfRow(const QStringList &row);
    [[nodiscard]] bool isRowOfArtist(const QString &listedArtist) const;
    void gotAlbum(const FetchResult &result);
    [[nodiscard]] bool isAlbumOfArtist(const AlbumInfo &album) const;

    bool mGotFirstPageOfResults = false;
};
