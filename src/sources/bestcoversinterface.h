#pragma once

#include "sources/coversource.h"

/// Covers from a site that lists albums on one index page for each letter: the rows of the right
/// artist and title name the pictures.
class BestCoversInterface : public CoverSource {
    Q_OBJECT

public:
    using CoverSource::CoverSource;

    [[nodiscard]] QString className() const override
    {
        return QStringLiteral("BestCoversInterface");
    }

protected:
    void startSearch() override;

private:
    void bcArtistAlbumListCompleted(const FetchResult &result);
    [[nodiscard]] QStringList linkCells(const QString &page) const;
    void addAlbumOfLink(const QString &cell);
};
