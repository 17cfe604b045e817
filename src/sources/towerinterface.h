#pragma once

#include "sources/recordshopinterface.h"

/// Albums of an online music store that is searched by album title, or by song title where no
/// album is known: every page of its results is read, and the page of each album by the artist.
class TowerInterface : public RecordShopInterface {
    Q_OBJECT

public:
    using RecordShopInterface::RecordShopInterface;

    [[nodiscard]] QString className() const override { return QStringLiteral("TowerInterface"); }

protected:
    void startSearch() override;

private:
    void towerAlbumListCompleted(const FetchResult &result);
    void addFurtherPages(const QString &page);
    void addAlbumOfRow(const QString &cell);
    void towerAlbumCompleted(const FetchResult &result);
    /// Nothing for a page without artist or title.
    [[nodiscard]] std::optional<AlbumInfo> createAlbumFromHTMLData(const QString &page) const;
};
