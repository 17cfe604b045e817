#include "gathering/failedhosts.h"

bool FailedHosts::failedLately(const QString &host) const
{
    const auto failure = mFailureTimes.constFind(host);
    return failure != mFailureTimes.constEnd() && *failure > mClock.now() - memory;
}
