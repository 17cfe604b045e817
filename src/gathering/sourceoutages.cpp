#include "gathering/sourceoutages.h"

#include "base/log.h"

void SourceOutages::unanswered(const QString &className)
{
    Outage &outage = mOutages[className];
    outage.since = mClock.now();
    if (++outage.inRow > mostUnanswered)
        outage.pause *= 2;
    if (outage.inRow < mostUnanswered)
        return;
    mMarked.insert(className);
    qCWarning(logGathering).noquote()
        << className << "gives no answer, left alone for" << outage.pause.count() << "minutes";
}

bool SourceOutages::isLeftAlone(const QString &className) const
{
    const auto outage = mOutages.constFind(className);
    if (outage == mOutages.constEnd() || outage->inRow < mostUnanswered)
        return false;
    const auto passed = mClock.now() - outage->since;
    return passed >= Clock::Time::duration::zero() && passed < outage->pause;
}

void SourceOutages::clear()
{
    mOutages.clear();
    mMarked.clear();
}
