#pragma once

#include "gathering/fetchresult.h"

#include <QObject>
#include <QPointer>

/// The one answer that a request owes its owner. Destroying it unpaid asserts.
class OwedResult {
public:
    OwedResult(QObject *owner, FetchCallback callback);
    OwedResult(OwedResult &&other) noexcept;
    /// Only onto one that is paid.
    OwedResult &operator=(OwedResult &&other) noexcept;
    OwedResult(const OwedResult &) = delete;
    OwedResult &operator=(const OwedResult &) = delete;
    ~OwedResult();

    /// Queues the callback on a later turn of the event loop, or drops the answer when the owner
    /// is gone by then. A second call asserts.
    void deliver(FetchResult result);

    [[nodiscard]] bool isOwedTo(const QObject *owner) const { return mOwner == owner; }
    /// Whether the owner is still there to be answered.
    [[nodiscard]] bool isWanted() const { return !mOwner.isNull(); }

private:
    QPointer<QObject> mOwner;
    FetchCallback mCallback;
    bool mIsOwed = true;
};
