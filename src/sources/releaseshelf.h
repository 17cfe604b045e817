#pragma once

#include "sources/releasecandidate.h"

#include <QMultiHash>
#include <QSet>
#include <QUrl>

#include <deque>

struct ReleaseRecord;

/// The releases that were looked up in this run, so that the other songs on them need no search
/// of their own. It remembers where they are; what they hold is in the queue's cache.
class ReleaseShelf {
public:
    void put(const ReleaseRecord &record, const QUrl &address);

    /// Where a release stands that holds the wished title: one of that name, or, where the album is
    /// not known, a plain album of the artist. Nothing when there is none.
    [[nodiscard]] std::optional<QUrl> addressFor(const ReleaseWish &wish) const;

private:
    struct Entry {
        QUrl address;
        QString artist; ///< simplified, like the name
        QString name;
        bool isPlainAlbum;
        QSet<QString> titles;
    };

    [[nodiscard]] static bool fits(const Entry &entry, const ReleaseWish &wish);
    void dropOldest();

    std::deque<std::shared_ptr<const Entry>> mEntries; ///< in the order in which they came
    QMultiHash<QString, std::shared_ptr<const Entry>> mByTitle;
    QSet<QUrl> mAddresses;
};
