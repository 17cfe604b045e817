#pragma once

#include "sources/recordshopinterface.h"

/// Albums of an online music store that is searched by artist, or by album title for a song of a
/// compilation: from a list of several artists to the artist's page, and from there to the pages
/// of the albums whose title fits.
class CDUniverseInterface : public RecordShopInterface {
    Q_OBJECT

public:
    using RecordShopInterface::RecordShopInterface;

    [[nodiscard]] QString className() const override
    {
        return QStringLiteral("CDUniverseInterface");
    }

protected:
    void startSearch() override;

private:
    void cdUniverseSearchResults(const FetchResult &result);
    void readArtistList(const QString &page);
    [[nodiscard]] bool isPageOfSearched(const QString &page) const;
    void readAlbumList(const QString &page);
    void cdUniverseAlbumCompleted(const FetchResult &result);
    /// Nothing for a page without artist or title.
    [[nodiscard]] std::optional<AlbumInfo> createAlbumWithHTMLData(const QString &page) const;
    /// By the markers that the program knows itself, where the definition says that they fit.
    [[nodiscard]] std::optional<AlbumInfo> albumByOwnMarkers(QByteArrayView data,
                                                             const QString &page) const;
    [[nodiscard]] std::optional<QString> artURLOn(const QString &page) const;
};
