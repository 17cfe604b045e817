#include "gathering/fetchtable.h"

#include <algorithm>
#include <utility>

void FetchTable::add(const FetchPointer &fetch)
{
    mFetches.insert(fetch->url, fetch);
}

void FetchTable::remove(const FetchPointer &fetch)
{
    mFetches.remove(fetch->url, fetch);
}

void FetchTable::addAsker(Fetch &fetch, OwedResult owed, qint64 place)
{
    fetch.askers.push_back({place, std::move(owed)});
    ++mNumberOfRows;
    mRowsAreMade = false;
}

void FetchTable::pay(Fetch &fetch, const FetchResult &result, const QObject *owner)
{
    const auto paid = std::erase_if(fetch.askers, [&](Fetch::Asker &asker) {
        if (owner && !asker.owed.isOwedTo(owner))
            return false;
        asker.owed.deliver(result);
        return true;
    });
    mNumberOfRows -= static_cast<int>(paid);
    mRowsAreMade = false;
}

FetchPointer FetchTable::getOf(const QUrl &url, CacheUse cacheUse) const
{
    const auto [first, last] = mFetches.equal_range(url);
    const auto found = std::find_if(first, last, [cacheUse](const FetchPointer &fetch) {
        return fetch->method == FetchMethod::Get && fetch->cacheUse == cacheUse;
    });
    return found == last ? nullptr : *found;
}

const Fetch &FetchTable::fetchOfRow(int row)
{
    if (!std::exchange(mRowsAreMade, true))
        makeRows();
    return *mRows.at(row);
}

void FetchTable::makeRows()
{
    std::vector<std::pair<qint64, const Fetch *>> places;
    for (const FetchPointer &fetch : std::as_const(mFetches))
        for (const Fetch::Asker &asker : fetch->askers)
            places.emplace_back(asker.place, fetch.get());
    std::sort(places.begin(), places.end());
    mRows.clear();
    for (const auto &place : places)
        mRows.append(place.second);
}
