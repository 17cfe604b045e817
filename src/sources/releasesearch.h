#pragma once

#include "sources/releasesource.h"

/// What the sources share that search the open music database. They search by the same addresses,
/// so that the answer to one serves the others.
class ReleaseSearch : public ReleaseSource {
    Q_OBJECT

public:
    using ReleaseSource::ReleaseSource;

protected:
    /// Where a release stands that needs no search. One that is known by its album does: that
    /// search is the same for all its songs, and finds the best of its editions.
    [[nodiscard]] std::optional<QUrl> addressOnShelf() const;
    /// Queues a search of the song's recordings or, where the album is known, of releases, which is
    /// the same for all songs of the album. gotCandidates() follows unless a search failed.
    void searchByWords();
    /// None may fit.
    virtual void gotCandidates(ReleaseFindings found) = 0;

private:
    using Reading = ReleaseFindings (*)(const QJsonObject &, const ReleaseWish &);

    void searchReleases();
    void searchRecordings();
    void search(const QString &key, const QStringList &terms, Reading candidatesOf,
                const QString &listKey);

    QList<ReleaseCandidate> mUnfit; ///< of a search before
    bool mSearchedRecordings = false;
};
