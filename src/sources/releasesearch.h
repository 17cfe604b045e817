#pragma once

#include "sources/releasesource.h"

/// What the sources share that search the open music database. They search by the same addresses,
/// so that the answer to one serves the others.
class ReleaseSearch : public ReleaseSource {
    Q_OBJECT

public:
    using ReleaseSource::ReleaseSource;

protected:
    /// Queues a search of the song's recordings or, where the album is known, of releases, which is
    /// the same for all songs of the album. gotCandidates() follows unless a search failed.
    void searchByWords();
    /// The best first; may be none.
    virtual void gotCandidates(QList<ReleaseCandidate> candidates) = 0;

private:
    using Reading = QList<ReleaseCandidate> (*)(const QJsonObject &, const ReleaseWish &);

    void searchReleases();
    void searchRecordings();
    void search(const QString &key, const QStringList &terms, Reading candidatesOf,
                const QString &listKey);

    bool mSearchedRecordings = false;
};
