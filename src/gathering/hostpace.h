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

    /// How long the next request to `host` has to wait; zero: it may begin now. Never longer than
    /// the interval, even when the clock was set back.
    [[nodiscard]] std::chrono::milliseconds timeToWait(const QString &host) const;

    /// A request to `host` begins.
    void noteBegin(const QString &host);

private:
    struct Pace {
        std::chrono::milliseconds interval;
        Clock::Time lastBegin;
    };

    const Clock &mClock;
    QHash<QString, Pace> mPaces;
};
