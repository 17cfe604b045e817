#pragma once

#include "sources/releasesearch.h"

/// Artwork from the archive that keeps pictures of the open music database's releases. The release
/// is the one that was found for the song before, or is searched in the database.
class CoverArtArchiveInterface : public ReleaseSearch {
    Q_OBJECT

public:
    static constexpr Assets resourcesPossiblyAvailable = AssetArtwork;

    /// The addresses of listings without a front, of all searches of a run: an archive's "there is
    /// none" is no page that the queue would keep.
    using EmptyListings = QSet<QUrl>;

    CoverArtArchiveInterface(SiteDefinition resources, HVHTTPQueue &queue,
                             std::shared_ptr<ReleaseShelf> shelf,
                             std::shared_ptr<EmptyListings> emptyListings);

    [[nodiscard]] QString className() const override
    {
        return QStringLiteral("CoverArtArchiveInterface");
    }

protected:
    void startSearch() override;
    void gotCandidates(ReleaseFindings found) override;

private:
    void gotRelease(const FetchResult &result);
    void askFor(const ReleaseIdentifiers &album);
    void askNext();
    void gotListing(const FetchResult &result);

    std::shared_ptr<EmptyListings> mEmptyListings;
    QList<QUrl> mListings; ///< that are still to be asked for
};
