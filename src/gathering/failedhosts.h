#pragma once

#include "base/clock.h"

#include <QHash>
#include <QString>

/// The hosts that failed lately, so that they are not asked again and again in vain.
class FailedHosts {
public:
    /// How long a failed host is left alone.
    static constexpr std::chrono::seconds memory{300};

    explicit FailedHosts(const Clock &clock)
        : mClock(clock)
    {
    }

    void remember(const QString &host) { mFailureTimes.insert(host, mClock.now()); }
    [[nodiscard]] bool failedLately(const QString &host) const;

private:
    const Clock &mClock;
    QHash<QString, Clock::Time> mFailureTimes;
};
