#include "gathering/fetchflow.h"

#include "base/log.h"
#include "base/nextturn.h"
#include "base/progress.h"
#include "gathering/fetchable.h"
#include "gathering/jsonanswer.h"
#include "gathering/retryafter.h"

#include <algorithm>
#include <utility>

using std::chrono::milliseconds;

FetchFlow::FetchFlow(const QString &cacheFolder, const Clock &clock, const FetchLimits &limits,
                     OnlineCheck isOnline)
    : mClock(clock)
    , mLimits(limits)
    , mIsOnline(std::move(isOnline))
    , mCache(cacheFolder)
    , mFailedHosts(clock)
    , mPace(clock)
    , mFloodWatch(limits.unreadBytes)
{
}

FetchFlow::~FetchFlow()
{
    for (const FetchPointer &fetch : mTable.all())
        cancel(fetch, nullptr);
}

void FetchFlow::addGet(const QUrl &url, OwedResult owed, QueueEnd at, CacheUse cacheUse,
                       Progress *indicator, qint64 mostBytes)
{
    if (!isFetchable(url)) {
        owed.deliver({.url = url, .error = notFetchableError(url)});
        return;
    }
    const qint64 place = at == QueueEnd::Front ? --mFirstPlace : ++mLastPlace;
    FetchPointer fetch = mTable.getOf(url, cacheUse);
    if (!fetch) {
        fetch = std::make_shared<Fetch>(
            Fetch{.url = url, .cacheUse = cacheUse, .mostBytes = mostBytes, .turn = place});
        mTable.add(fetch);
        mLine.add(fetch);
    } else if (fetch->isInLine && at == QueueEnd::Front) {
        mLine.remove(fetch);
        fetch->turn = place;
        mLine.add(fetch);
    }
    if (indicator)
        fetch->indicator = indicator;
    mTable.addAsker(*fetch, std::move(owed), place);
    rowsChange();
    startWaiting();
}

void FetchFlow::sendAtOnce(const QUrl &url, OwedResult owed, FetchMethod method,
                           const QByteArray &body)
{
    if (!isFetchable(url)) {
        owed.deliver({.url = url, .error = notFetchableError(url)});
        return;
    }
    // First of those that its host's pace keeps waiting, last in the table.
    const auto fetch = std::make_shared<Fetch>(Fetch{.url = url,
                                                     .method = method,
                                                     .cacheUse = CacheUse::AskServer,
                                                     .body = body,
                                                     .turn = --mFirstPlace});
    mTable.add(fetch);
    mTable.addAsker(*fetch, std::move(owed), ++mLastPlace);
    rowsChange();
    begin(fetch);
}

void FetchFlow::setManners(const QString &host, const QString &asker, const HostManners &manners)
{
    HostMannersTold &told = mMannersTold[host];
    told.set(asker, manners);
    const HostManners together = told.together();
    mManners.insert(host, together);
    mPace.setMinInterval(host, together.minInterval);
}

void FetchFlow::startWaiting()
{
    if (std::exchange(mIsStarting, true))
        return;
    while (mRunningGets < mMaxConnections) {
        const FetchPointer fetch = mLine.takeFirst();
        if (!fetch)
            break;
        begin(fetch);
    }
    mIsStarting = false;
}

/// The fetch is out of the line, and is loading, parked or answered afterwards.
void FetchFlow::begin(const FetchPointer &fetch)
{
    if (!fetch->isWanted()) {
        answer(fetch, {});
        return;
    }
    if (fetch->method == FetchMethod::Get && answerWithoutAsking(fetch))
        return;
    const QString host = fetch->url.host();
    const milliseconds wait = mPace.timeToWait(host);
    if (wait > milliseconds::zero()) {
        park(fetch, wait);
        return;
    }
    mPace.noteBegin(host);
    load(fetch);
}

bool FetchFlow::answerWithoutAsking(const FetchPointer &fetch)
{
    const QString host = fetch->url.host();
    if (mFailedHosts.failedLately(host)) {
        answer(fetch,
               {.error = FetchError{FetchError::cannotConnectToHost,
                                    qtTrId("ErrorHostFailedLately").arg(host)}});
        return true;
    }
    if (fetch->cacheUse == CacheUse::AskServer)
        return false;
    const std::optional<KeptResponse> kept = mCache.response(fetch->url);
    if (!kept)
        return false;
    fetch->showExpected(kept->data.size());
    fetch->showReceived(kept->data.size());
    answer(fetch,
           {.data = kept->data,
            .MIMEType = kept->MIMEType,
            .status = 200,
            .cameInTheClear = kept->cameInTheClear});
    return true;
}

void FetchFlow::park(const FetchPointer &fetch, milliseconds wait)
{
    const QString host = fetch->url.host();
    mLine.park(fetch);
    if (!mHostsToRelease.contains(host))
        releaseIn(host, wait);
}

void FetchFlow::releaseIn(const QString &host, milliseconds wait)
{
    mHostsToRelease.insert(host);
    QTimer::singleShot(wait, this, [this, host] { release(host); });
}

/// One fetch of the host may go, the others stay for another interval.
void FetchFlow::release(const QString &host)
{
    mHostsToRelease.remove(host);
    const FetchPointer fetch = mLine.takeParked(host);
    if (mLine.hasParked(host))
        releaseIn(host, mPace.minInterval(host));
    if (fetch)
        comeBack(fetch);
}

/// After a pause, to the turn it had.
void FetchFlow::comeBack(const FetchPointer &fetch)
{
    if (!fetch->countsAgainstLimit()) {
        begin(fetch);
        return;
    }
    mLine.add(fetch);
    startWaiting();
}

HttpLoad::Bounds FetchFlow::boundsFor(const Fetch &fetch)
{
    const bool isHead = fetch.method == FetchMethod::Head;
    const milliseconds usual = isHead ? mLimits.headSilence : mLimits.silence;
    const milliseconds patience = mManners.value(fetch.url.host()).patience;
    return {.silence = patience > milliseconds::zero() ? patience : usual,
            .total = mLimits.total,
            .redirects = mLimits.redirects,
            .bodyBytes = fetch.mostBytes > 0 ? fetch.mostBytes : mLimits.bodyBytes,
            .htmlBytes = mMaxHTMLLength,
            .turnOfRedirect = [this](const QString &host) { return mPace.takeTurn(host); }};
}

QString FetchFlow::agentFor(const QString &host) const
{
    const QString own = mManners.value(host).userAgent;
    return own.isEmpty() ? mAgentID : own;
}

void FetchFlow::load(const FetchPointer &fetch)
{
    fetch->load.reset(new HttpLoad(mPool, fetch->message(agentFor(fetch->url.host())),
                                   boundsFor(*fetch), mIsOnline));
    ++mRunning;
    mFloodWatch.loadBegins();
    mRunningGets += fetch->countsAgainstLimit() ? 1 : 0;
    const HttpLoad *load = fetch->load.get();
    const std::weak_ptr<Fetch> held = fetch;
    connect(load, &HttpLoad::responded, this, [this, held](qint64 expectedBytes) {
        rowsChange();
        if (const FetchPointer loading = held.lock())
            loading->showExpected(expectedBytes);
    });
    connect(load, &HttpLoad::received, this, [this, held](qint64 bytes, qint64 newOnes) {
        mFloodWatch.noteHandedOn(newOnes);
        rowsChange();
        if (const FetchPointer loading = held.lock())
            loading->showReceived(bytes);
    });
    connect(load, &HttpLoad::ended, this, [this, held](const LoadOutcome &outcome) {
        if (const FetchPointer loading = held.lock())
            loadEnded(loading, outcome);
    });
    rowsChange();
}

void FetchFlow::loadEnded(const FetchPointer &fetch, const LoadOutcome &outcome)
{
    dropLoad(*fetch);
    if (outcome.error)
        takeFailure(fetch->url, *outcome.error);
    else
        mLastConnectionFailedBecauseOfNoInternet = false;
    if (retryLater(fetch, outcome)) {
        startWaiting();
        return;
    }
    if (outcome.mayBeStored && fetch->method == FetchMethod::Get)
        mCache.store(fetch->url, {outcome.data, *outcome.MIMEType, outcome.cameInTheClear});
    answer(fetch,
           {.data = outcome.data,
            .MIMEType = outcome.MIMEType,
            .error = outcome.error,
            .status = outcome.status,
            .cameInTheClear = outcome.cameInTheClear,
            .finalURL = outcome.finalURL});
}

/// How long the server asks to be left in peace before the same is asked again.
std::optional<milliseconds> FetchFlow::askedToWait(const QString &host,
                                                   const LoadOutcome &outcome) const
{
    const bool isRefused = outcome.status == 429 || outcome.status == 503;
    if (isRefused)
        if (const auto asked = retryAfter(outcome.retryAfter, mClock.now()))
            return asked;
    const milliseconds pause = mManners.value(host).busyPause;
    if (pause <= milliseconds::zero() || !(isRefused || saysBusy(outcome.status, outcome.data)))
        return std::nullopt;
    return pause;
}

/// Whether the server asked to come back later, and so it will be. A server that is too busy says
/// "at once" and means "not so often".
bool FetchFlow::retryLater(const FetchPointer &fetch, const LoadOutcome &outcome)
{
    if (fetch->retries >= mLimits.retries)
        return false;
    const std::optional<milliseconds> asked = askedToWait(fetch->url.host(), outcome);
    if (!asked)
        return false;
    const milliseconds pause = mLimits.retryPause * (1 << fetch->retries++);
    const milliseconds wait = std::min(std::max(*asked, pause), mLimits.retryWait);
    mPace.holdFor(fetch->url.host(), wait);
    const std::weak_ptr<Fetch> held = fetch;
    QTimer::singleShot(wait, this, [this, held] {
        if (const FetchPointer again = held.lock())
            comeBack(again);
    });
    return true;
}

/// A host is blamed under the address that was asked for, also when a redirect led elsewhere: that
/// address leads nowhere for now either way.
void FetchFlow::takeFailure(const QUrl &url, const FetchError &error)
{
    if (blamesHost(error)) {
        qCWarning(logGathering).noquote() << QStringLiteral("** remembering failure for %1 (%2)")
                                                 .arg(url.host(), error.localizedDescription);
        mFailedHosts.remember(url.host());
    }
    if (error.code != FetchError::notConnectedToInternet
        || std::exchange(mLastConnectionFailedBecauseOfNoInternet, true))
        return;
    const QString line = qtTrId("GeneralErrorPrefix") + error.localizedDescription;
    onNextTurn(this, [this, line] { Q_EMIT importantLog(line); });
}

void FetchFlow::answer(const FetchPointer &fetch, FetchResult result)
{
    result.url = fetch->url;
    mTable.pay(*fetch, result);
    mTable.remove(fetch);
    rowsChange();
    startWaiting();
}

void FetchFlow::cancel(const QUrl &url, const QObject *owner)
{
    for (const FetchPointer &fetch : mTable.of(url))
        cancel(fetch, owner);
    startWaiting();
}

void FetchFlow::cancelLoading()
{
    for (const FetchPointer &fetch : mTable.all())
        if (fetch->load)
            cancel(fetch, nullptr);
}

/// Answers `owner`, or everyone when there is none given, with the URL alone.
void FetchFlow::cancel(const FetchPointer &fetch, const QObject *owner)
{
    mTable.pay(*fetch, {.url = fetch->url}, owner);
    rowsChange();
    if (!fetch->askers.empty())
        return;
    dropLoad(*fetch);
    mLine.remove(fetch);
    mTable.remove(fetch);
}

void FetchFlow::dropLoad(Fetch &fetch)
{
    if (!fetch.load)
        return;
    fetch.load->cutOff();
    fetch.load.reset();
    --mRunning;
    mFloodWatch.loadEnds();
    mRunningGets -= fetch.countsAgainstLimit() ? 1 : 0;
}

/// Told once for all that happens in one turn.
void FetchFlow::rowsChange()
{
    if (std::exchange(mRowsChangeIsTold, true))
        return;
    onNextTurn(this, [this] {
        mRowsChangeIsTold = false;
        Q_EMIT rowsChanged();
    });
}
