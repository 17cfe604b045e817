#pragma once

#include "gathering/fetch.h"

#include <QHash>

#include <map>

/// The fetches that wait, by turn. Those whose host is to be left in peace for a moment are
/// parked, so that they are not looked at again and again.
class FetchLine {
public:
    void add(const FetchPointer &fetch);
    /// The fetch stays away from its turn until one of its host is released.
    void park(const FetchPointer &fetch);
    void remove(const FetchPointer &fetch);

    /// Takes out whose turn it is; null when nobody waits.
    FetchPointer takeFirst();
    /// Takes out the first parked fetch of `host`; null when there is none.
    FetchPointer takeParked(const QString &host);
    [[nodiscard]] bool hasParked(const QString &host) const { return mParked.contains(host); }

private:
    using ByTurn = std::map<qint64, FetchPointer>;

    static FetchPointer takeFirstOf(ByTurn &fetches);

    ByTurn mWaiting;
    QHash<QString, ByTurn> mParked;
};
