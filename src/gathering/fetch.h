#pragma once

#include "gathering/connectionpool.h"
#include "gathering/httpload.h"
#include "gathering/owedresult.h"

#include <QScopedPointer>

#include <memory>
#include <vector>

class Progress;

/// Whether an answer that was kept may be given.
enum class CacheUse { KeptIfAny, AskServer };

/// Everyone who waits for one exchange with a server, and how far it is.
struct Fetch {
    struct Asker {
        qint64 place; ///< where its row stands among all of the queue
        OwedResult owed;
    };

    QUrl url{};
    FetchMethod method = FetchMethod::Get;
    CacheUse cacheUse = CacheUse::KeptIfAny;
    QByteArray body{};
    qint64 mostBytes = 0; ///< where an answer may be no longer than this; 0: as long as any
    qint64 turn = 0; ///< the lower, the sooner
    bool isInLine = false; ///< waits for its turn, or for its host's pace
    int retries = 0;
    std::vector<Asker> askers{};
    std::unique_ptr<HttpLoad, QScopedPointerDeleteLater> load{};
    QPointer<Progress> indicator{};

    /// Whether any of those who asked is still there.
    [[nodiscard]] bool isWanted() const;

    /// POST and HEAD are sent at once and take none of the places.
    [[nodiscard]] bool countsAgainstLimit() const { return method == FetchMethod::Get; }
    [[nodiscard]] HttpMessage message(const QString &agent) const;
    /// "-Queued-", "-Wait-" or "%d bytes".
    [[nodiscard]] QString status() const;

    // What the indicator shows; it starts indeterminate and stays so without a length.
    void showExpected(qint64 bytes) const;
    void showReceived(qint64 bytes) const;
};

using FetchPointer = std::shared_ptr<Fetch>;
