#include "gathering/hostpace.h"

#include <algorithm>

using std::chrono::milliseconds;

void HostPace::setMinInterval(const QString &host, milliseconds interval)
{
    if (interval <= milliseconds::zero()) {
        mPaces.remove(host);
        return;
    }
    const auto known = mPaces.find(host);
    if (known == mPaces.end())
        mPaces.insert(host, {interval, Clock::Time::min()});
    else
        known->interval = interval;
}

milliseconds HostPace::minInterval(const QString &host) const
{
    const auto pace = mPaces.constFind(host);
    return pace == mPaces.constEnd() ? milliseconds::zero() : pace->interval;
}

milliseconds HostPace::timeToWait(const QString &host) const
{
    const auto pace = mPaces.constFind(host);
    if (pace == mPaces.constEnd() || pace->lastBegin == Clock::Time::min())
        return milliseconds::zero();
    const auto elapsed = mClock.now() - pace->lastBegin;
    const auto left = std::chrono::ceil<milliseconds>(pace->interval - elapsed);
    return std::clamp(left, milliseconds::zero(), pace->interval);
}

void HostPace::noteBegin(const QString &host)
{
    const auto pace = mPaces.find(host);
    if (pace != mPaces.end())
        pace->lastBegin = mClock.now();
}
