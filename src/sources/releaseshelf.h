#pragma once

#include "sources/releasecandidate.h"

#include <QHash>
#include <QMultiHash>
#include <QUrl>

#include <deque>
#include <memory>

struct ReleaseRecord;

/// The releases that were looked up in this run, so that the other songs on them need no search
/// of their own. It remembers where they are; what they hold is in the queue's cache. A song finds
/// there what its own search would have found, whichever songs came before it, as far as can be
/// told without one.
class ReleaseShelf {
public:
    /// `since`: of all editions that came out since that date a search found this one the best;
    /// empty where none was made. When each recording came out first tells then whether its own
    /// search would have found an earlier one.
    void put(const ReleaseRecord &record, const QUrl &address, const QString &since = {});

    /// Where a release stands that holds the wished title in the song's length: one of that name,
    /// or, where the album is not known, a plain album of the artist. Of several the one that came
    /// first. Nothing when there is none.
    [[nodiscard]] std::optional<QUrl> addressFor(const ReleaseWish &wish) const;

private:
    struct Track {
        qint64 length; ///< milliseconds, 0 where unknown
        QString artist; ///< simplified; empty where unknown
        QString firstDate; ///< empty where unknown
    };

    struct Entry {
        QUrl address;
        QString artist; ///< simplified, like the name
        QString name;
        bool isPlainAlbum;
        QString firstDate; ///< of the work
        QString group;
        QString date; ///< of this edition
        QString since; ///< as put() says
        QMultiHash<QString, Track> tracks; ///< by simplified title
    };

    [[nodiscard]] static Entry entryOf(const ReleaseRecord &record, const QUrl &address);
    [[nodiscard]] static bool fits(const Entry &entry, const ReleaseWish &wish);
    [[nodiscard]] static bool fits(const Track &track, const Entry &entry, const ReleaseWish &wish);
    void dropOldest();

    std::deque<std::shared_ptr<Entry>> mEntries; ///< in the order in which they came
    QMultiHash<QString, std::shared_ptr<Entry>> mByTitle;
    QHash<QUrl, std::shared_ptr<Entry>> mByAddress;
};
