#pragma once

#include "sources/coversource.h"

/// Covers from a site whose index pages, one for each letter, hold two lists: the albums, and the
/// scans there are of them. The front covers are paired from both.
class CoverKingdomInterface : public CoverSource {
    Q_OBJECT

public:
    using CoverSource::CoverSource;

    [[nodiscard]] QString className() const override
    {
        return QStringLiteral("CoverKingdomInterface");
    }

protected:
    void startSearch() override;

private:
    void ckArtistAlbumListCompleted(const FetchResult &result);
    [[nodiscard]] QMap<QString, QString> frontCoversFromHTML(const QString &page) const;
    [[nodiscard]] QString wantedTitle() const;
};
