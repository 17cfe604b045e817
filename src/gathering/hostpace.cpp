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
        mPaces.insert(host, {interval, Clock::Time::min(), Clock::Time::min()});
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
    const Clock::Time now = mClock.now();
    if (now < pace->notedAt)
        return pace->interval;
    const auto left = std::chrono::ceil<milliseconds>(pace->interval - (now - pace->lastBegin));
    return std::max(left, milliseconds::zero());
}

milliseconds HostPace::takeTurn(const QString &host)
{
    const milliseconds wait = timeToWait(host);
    const auto pace = mPaces.find(host);
    if (pace != mPaces.end())
        *pace = {pace->interval, mClock.now() + wait, mClock.now()};
    return wait;
}

void HostPace::holdFor(const QString &host, milliseconds wait)
{
    const auto pace = mPaces.find(host);
    if (pace == mPaces.end() || wait <= timeToWait(host))
        return;
    *pace = {pace->interval, mClock.now() + wait - pace->interval, mClock.now()};
}
