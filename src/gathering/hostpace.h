#pragma once

#include "base/clock.h"

#include <QHash>
#include <QString>

/// How soon a host may be asked again: at most one request is begun in its interval.
class HostPace {
public:
    explicit HostPace(const Clock &clock)
        : mClock(clock)
    {
    }

    /// Zero or less: no limit.
    void setMinInterval(const QString &host, std::chrono::milliseconds interval);

    [[nodiscard]] std::chrono::milliseconds minInterval(const QString &host) const;

    /// How long the next request to `host` has to wait; zero: it may begin now. When the clock was
    /// set back, the interval.
    [[nodiscard]] std::chrono::milliseconds timeToWait(const QString &host) const;

    /// A request to `host` begins.
    void noteBegin(const QString &host) { takeTurn(host); }

    /// A request begins as soon as it may, others after it: how long it has to wait.
    std::chrono::milliseconds takeTurn(const QString &host);

    /// Nothing is begun for so long: the host asked for it. Hosts without an interval do not care.
    void holdFor(const QString &host, std::chrono::milliseconds wait);

private:
    struct Pace {
        std::chrono::milliseconds interval;
        Clock::Time lastBegin; ///< may lie ahead, by a turn that was taken
        Clock::Time notedAt; ///< when that was written down
    };

    const Clock &mClock;
    QHash<QString, Pace> mPaces;
};
