#include "gathering/owedresult.h"

#include "base/nextturn.h"

#include <utility>

OwedResult::OwedResult(QObject *owner, FetchCallback callback)
    : mOwner(owner)
    , mCallback(std::move(callback))
{
    Q_ASSERT(owner);
}

OwedResult::OwedResult(OwedResult &&other) noexcept
    : mOwner(std::move(other.mOwner))
    , mCallback(std::move(other.mCallback))
    , mIsOwed(std::exchange(other.mIsOwed, false))
{
}

OwedResult &OwedResult::operator=(OwedResult &&other) noexcept
{
    Q_ASSERT(!mIsOwed);
    mOwner = other.mOwner;
    mCallback = std::move(other.mCallback);
    mIsOwed = std::exchange(other.mIsOwed, false);
    return *this;
}

OwedResult::~OwedResult()
{
    Q_ASSERT(!mIsOwed);
}

void OwedResult::deliver(FetchResult result)
{
    Q_ASSERT(mIsOwed);
    mIsOwed = false;
    if (!mOwner || !mCallback)
        return;
    onNextTurn(mOwner,
               [callback = std::move(mCallback), answer = std::move(result)] { callback(answer); });
}
