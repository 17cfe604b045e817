#include "gathering/fetchline.h"

void FetchLine::add(const FetchPointer &fetch)
{
    fetch->isInLine = true;
    mWaiting.emplace(fetch->turn, fetch);
}

void FetchLine::park(const FetchPointer &fetch)
{
    fetch->isInLine = true;
    mParked[fetch->url.host()].emplace(fetch->turn, fetch);
}

void FetchLine::remove(const FetchPointer &fetch)
{
    fetch->isInLine = false;
    mWaiting.erase(fetch->turn);
    const auto parked = mParked.find(fetch->url.host());
    if (parked == mParked.end())
        return;
    parked->erase(fetch->turn);
    if (parked->empty())
        mParked.erase(parked);
}

FetchPointer FetchLine::takeFirstOf(ByTurn &fetches)
{
    FetchPointer first = fetches.extract(fetches.begin()).mapped();
    first->isInLine = false;
    return first;
}

FetchPointer FetchLine::takeFirst()
{
    return mWaiting.empty() ? nullptr : takeFirstOf(mWaiting);
}

FetchPointer FetchLine::takeParked(const QString &host)
{
    const auto parked = mParked.find(host);
    if (parked == mParked.end())
        return nullptr;
    FetchPointer first = takeFirstOf(*parked);
    if (parked->empty())
        mParked.erase(parked);
    return first;
}
