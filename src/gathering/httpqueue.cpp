#include "gathering/httpqueue.h"

#include "base/log.h"
#include "base/nextturn.h"
#include "base/progress.h"
#include "gathering/failedhosts.h"
#include "gathering/fetchable.h"
#include "gathering/fetchline.h"
#include "gathering/hostpace.h"
#include "gathering/httpcache.h"
#include "gathering/retryafter.h"

#include <QSet>

#include <algorithm>
#include <utility>

using std::chrono::milliseconds;

class HVHTTPQueue::Private {
public:
    Private(HVHTTPQueue *queue, const QString &cacheFolder, const Clock &clock,
            const FetchLimits &limits, OnlineCheck isOnline);

    // Asking.
    void addGet(const QUrl &url, OwedResult owed, QueueEnd at, CacheUse cacheUse,
                Progress *indicator);
    void sendAtOnce(const QUrl &url, OwedResult owed, FetchMethod method, const QByteArray &body);
    [[nodiscard]] FetchPointer getOf(const QUrl &url, CacheUse cacheUse) const;
    void addAsker(const FetchPointer &fetch, OwedResult owed, qint64 place);

    // Going through the line.
    void startWaiting();
    void begin(const FetchPointer &fetch);
    [[nodiscard]] bool answerWithoutAsking(const FetchPointer &fetch);
    void park(const FetchPointer &fetch, milliseconds wait);
    void release(const QString &host);
    void load(const FetchPointer &fetch);
    [[nodiscard]] QNetworkRequest requestFor(const Fetch &fetch) const;
    [[nodiscard]] HttpLoad::Bounds boundsFor(const Fetch &fetch) const;

    // Ending.
    void loadEnded(const FetchPointer &fetch, const LoadOutcome &outcome);
    [[nodiscard]] bool retryLater(const FetchPointer &fetch, const LoadOutcome &outcome);
    void takeFailure(const QUrl &url, const FetchError &error);
    void answer(const FetchPointer &fetch, FetchResult result);
    void cancel(const FetchPointer &fetch, const QObject *owner);
    void dropLoad(const FetchPointer &fetch);
    void forget(const FetchPointer &fetch);

    // Showing.
    void showResponse(const Fetch &fetch, qint64 expectedBytes);
    void showBytes(const Fetch &fetch, qint64 bytes);
    void rowsChange();
    [[nodiscard]] const QList<const Fetch *> &rows();

    HVHTTPQueue *mQueue;
    const Clock &mClock;
    FetchLimits mLimits;
    OnlineCheck mIsOnline;
    // The pool goes after the fetches, whose replies are its own.
    ConnectionPool mPool;
    HttpCache mCache;
    FailedHosts mFailedHosts;
    HostPace mPace;
    FetchLine mLine;
    QMultiHash<QUrl, FetchPointer> mFetches; ///< all that are not answered
    QSet<QString> mHostsToRelease;
    QString mAgentID = QStringLiteral("Mozilla/4.0 (compatible; MSIE 6.0b; Windows 98)");
    qint64 mMaxHTMLLength = 0;
    int mMaxConnections = 8;
    int mRunningGets = 0;
    int mRunning = 0;
    int mNumberOfRows = 0;
    qint64 mFirstPlace = 0;
    qint64 mLastPlace = 0;
    QList<const Fetch *> mRows; ///< made when somebody looks
    bool mRowsAreMade = false;
    bool mRowsChangeIsTold = false;
    bool mQueuePaused = false;
    bool mIsStarting = false;
    bool mLastConnectionFailedBecauseOfNoInternet = false;
};

HVHTTPQueue::Private::Private(HVHTTPQueue *queue, const QString &cacheFolder, const Clock &clock,
                              const FetchLimits &limits, OnlineCheck isOnline)
    : mQueue(queue)
    , mClock(clock)
    , mLimits(limits)
    , mIsOnline(std::move(isOnline))
    , mCache(cacheFolder)
    , mFailedHosts(clock)
    , mPace(clock)
{
}

void HVHTTPQueue::Private::addGet(const QUrl &url, OwedResult owed, QueueEnd at, CacheUse cacheUse,
                                  Progress *indicator)
{
    if (!isFetchable(url)) {
        owed.deliver({.url = url, .error = notFetchableError(url)});
        return;
    }
    const qint64 place = at == QueueEnd::Front ? --mFirstPlace : ++mLastPlace;
    FetchPointer fetch = getOf(url, cacheUse);
    const bool isNew = !fetch;
    if (isNew) {
        fetch = std::make_shared<Fetch>(Fetch{.url = url, .cacheUse = cacheUse, .turn = place});
        mFetches.insert(url, fetch);
        mLine.add(fetch);
    } else if (fetch->isInLine && at == QueueEnd::Front) {
        mLine.remove(fetch);
        fetch->turn = place;
        mLine.add(fetch);
    }
    if (indicator)
        fetch->indicator = indicator;
    addAsker(fetch, std::move(owed), place);
    startWaiting();
}

void HVHTTPQueue::Private::sendAtOnce(const QUrl &url, OwedResult owed, FetchMethod method,
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
    mFetches.insert(url, fetch);
    addAsker(fetch, std::move(owed), ++mLastPlace);
    begin(fetch);
}

/// The GET under way that can serve one more who asks for the same; null when there is none.
FetchPointer HVHTTPQueue::Private::getOf(const QUrl &url, CacheUse cacheUse) const
{
    const auto [first, last] = mFetches.equal_range(url);
    const auto found = std::find_if(first, last, [cacheUse](const FetchPointer &fetch) {
        return fetch->method == FetchMethod::Get && fetch->cacheUse == cacheUse;
    });
    return found == last ? nullptr : *found;
}

void HVHTTPQueue::Private::addAsker(const FetchPointer &fetch, OwedResult owed, qint64 place)
{
    fetch->askers.push_back({place, std::move(owed)});
    ++mNumberOfRows;
    rowsChange();
}

void HVHTTPQueue::Private::startWaiting()
{
    if (mQueuePaused || std::exchange(mIsStarting, true))
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
void HVHTTPQueue::Private::begin(const FetchPointer &fetch)
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

bool HVHTTPQueue::Private::answerWithoutAsking(const FetchPointer &fetch)
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
    showResponse(*fetch, kept->data.size());
    showBytes(*fetch, kept->data.size());
    answer(fetch,
           {.data = kept->data,
            .MIMEType = kept->MIMEType,
            .status = 200,
            .cameInTheClear = kept->cameInTheClear});
    return true;
}

void HVHTTPQueue::Private::park(const FetchPointer &fetch, milliseconds wait)
{
    const QString host = fetch->url.host();
    mLine.park(fetch);
    if (mHostsToRelease.contains(host))
        return;
    mHostsToRelease.insert(host);
    QTimer::singleShot(wait, mQueue, [this, host] { release(host); });
}

/// One fetch of the host may go, the others stay for another interval.
void HVHTTPQueue::Private::release(const QString &host)
{
    mHostsToRelease.remove(host);
    const FetchPointer fetch = mLine.takeParked(host);
    if (!fetch)
        return;
    if (mLine.hasParked(host)) {
        mHostsToRelease.insert(host);
        QTimer::singleShot(mPace.minInterval(host), mQueue, [this, host] { release(host); });
    }
    if (!fetch->countsAgainstLimit()) {
        begin(fetch);
        return;
    }
    mLine.add(fetch);
    startWaiting();
}

QNetworkRequest HVHTTPQueue::Private::requestFor(const Fetch &fetch) const
{
    QNetworkRequest request(fetch.url);
    request.setHeader(QNetworkRequest::UserAgentHeader, mAgentID);
    if (fetch.method == FetchMethod::Post)
        request.setHeader(QNetworkRequest::ContentTypeHeader,
                          QStringLiteral("application/x-www-form-urlencoded"));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    for (const auto attribute :
         {QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::CookieSaveControlAttribute,
          QNetworkRequest::AuthenticationReuseAttribute})
        request.setAttribute(attribute, QNetworkRequest::Manual);
    return request;
}

HttpLoad::Bounds HVHTTPQueue::Private::boundsFor(const Fetch &fetch) const
{
    const bool isHead = fetch.method == FetchMethod::Head;
    return {.silence = isHead ? mLimits.headSilence : mLimits.silence,
            .total = mLimits.total,
            .redirects = mLimits.redirects,
            .bodyBytes = mLimits.bodyBytes,
            .htmlBytes = mMaxHTMLLength};
}

void HVHTTPQueue::Private::load(const FetchPointer &fetch)
{
    fetch->load.reset(new HttpLoad(mPool, {fetch->method, requestFor(*fetch), fetch->body},
                                   boundsFor(*fetch), mIsOnline));
    ++mRunning;
    mRunningGets += fetch->countsAgainstLimit() ? 1 : 0;
    const HttpLoad *load = fetch->load.get();
    const std::weak_ptr<Fetch> held = fetch;
    QObject::connect(load, &HttpLoad::responded, mQueue, [this, held](qint64 expectedBytes) {
        if (const FetchPointer loading = held.lock())
            showResponse(*loading, expectedBytes);
    });
    QObject::connect(load, &HttpLoad::received, mQueue, [this, held](qint64 bytes) {
        if (const FetchPointer loading = held.lock())
            showBytes(*loading, bytes);
    });
    QObject::connect(load, &HttpLoad::ended, mQueue, [this, held](const LoadOutcome &outcome) {
        if (const FetchPointer loading = held.lock())
            loadEnded(loading, outcome);
    });
    rowsChange();
}

void HVHTTPQueue::Private::loadEnded(const FetchPointer &fetch, const LoadOutcome &outcome)
{
    dropLoad(fetch);
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
            .cameInTheClear = outcome.cameInTheClear});
}

/// Whether the server asked to come back later, and so it will be.
bool HVHTTPQueue::Private::retryLater(const FetchPointer &fetch, const LoadOutcome &outcome)
{
    if ((outcome.status != 429 && outcome.status != 503) || fetch->retries >= mLimits.retries)
        return false;
    const std::optional<milliseconds> asked = retryAfter(outcome.retryAfter, mClock.now());
    if (!asked)
        return false;
    ++fetch->retries;
    const std::weak_ptr<Fetch> held = fetch;
    QTimer::singleShot(std::min(*asked, mLimits.retryWait), mQueue, [this, held] {
        const FetchPointer again = held.lock();
        if (!again)
            return;
        if (!again->countsAgainstLimit()) {
            begin(again);
            return;
        }
        mLine.add(again);
        startWaiting();
    });
    return true;
}

/// A host is blamed under the address that was asked for, also when a redirect led elsewhere: that
/// address leads nowhere for now either way.
void HVHTTPQueue::Private::takeFailure(const QUrl &url, const FetchError &error)
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
    onNextTurn(mQueue, [queue = mQueue, line] { Q_EMIT queue->importantLog(line); });
}

void HVHTTPQueue::Private::answer(const FetchPointer &fetch, FetchResult result)
{
    result.url = fetch->url;
    for (Fetch::Asker &asker : fetch->askers)
        asker.owed.deliver(result);
    mNumberOfRows -= static_cast<int>(fetch->askers.size());
    fetch->askers.clear();
    forget(fetch);
    startWaiting();
}

/// Answers `owner`, or everyone when there is none given, with the URL alone.
void HVHTTPQueue::Private::cancel(const FetchPointer &fetch, const QObject *owner)
{
    const auto cancelled = std::erase_if(fetch->askers, [&](Fetch::Asker &asker) {
        if (owner && !asker.owed.isOwedTo(owner))
            return false;
        asker.owed.deliver({.url = fetch->url});
        return true;
    });
    mNumberOfRows -= static_cast<int>(cancelled);
    rowsChange();
    if (!fetch->askers.empty())
        return;
    dropLoad(fetch);
    mLine.remove(fetch);
    forget(fetch);
}

void HVHTTPQueue::Private::dropLoad(const FetchPointer &fetch)
{
    if (!fetch->load)
        return;
    fetch->load->cutOff();
    fetch->load.reset();
    --mRunning;
    mRunningGets -= fetch->countsAgainstLimit() ? 1 : 0;
}

void HVHTTPQueue::Private::forget(const FetchPointer &fetch)
{
    mFetches.remove(fetch->url, fetch);
    rowsChange();
}

void HVHTTPQueue::Private::showResponse(const Fetch &fetch, qint64 expectedBytes)
{
    rowsChange();
    if (!fetch.indicator || expectedBytes <= 0)
        return;
    fetch.indicator->setIndeterminate(false);
    fetch.indicator->setMaximum(static_cast<double>(expectedBytes));
    fetch.indicator->setValue(0);
}

void HVHTTPQueue::Private::showBytes(const Fetch &fetch, qint64 bytes)
{
    rowsChange();
    if (fetch.indicator)
        fetch.indicator->setValue(static_cast<double>(bytes));
}

/// Told once for all that happens in one turn.
void HVHTTPQueue::Private::rowsChange()
{
    mRowsAreMade = false;
    if (std::exchange(mRowsChangeIsTold, true))
        return;
    onNextTurn(mQueue, [this] {
        mRowsChangeIsTold = false;
        Q_EMIT mQueue->rowsChanged();
    });
}

const QList<const Fetch *> &HVHTTPQueue::Private::rows()
{
    if (std::exchange(mRowsAreMade, true))
        return mRows;
    std::vector<std::pair<qint64, const Fetch *>> places;
    for (const FetchPointer &fetch : std::as_const(mFetches))
        for (const Fetch::Asker &asker : fetch->askers)
            places.emplace_back(asker.place, fetch.get());
    std::sort(places.begin(), places.end());
    mRows.clear();
    for (const auto &place : places)
        mRows.append(place.second);
    return mRows;
}

HVHTTPQueue::HVHTTPQueue(const QString &cacheFolder, const Clock &clock, QObject *parent,
                         const FetchLimits &limits, OnlineCheck isOnline)
    : QObject(parent)
    , d(std::make_unique<Private>(this, cacheFolder, clock, limits, std::move(isOnline)))
{
}

HVHTTPQueue::~HVHTTPQueue()
{
    d->mQueuePaused = true;
    const QList<FetchPointer> unanswered = d->mFetches.values();
    for (const FetchPointer &fetch : unanswered)
        d->cancel(fetch, nullptr);
}

void HVHTTPQueue::setAgentString(const QString &agent)
{
    d->mAgentID = agent;
}

QString HVHTTPQueue::agentString() const
{
    return d->mAgentID;
}

void HVHTTPQueue::setMaximumHTMLLength(qint64 bytes)
{
    d->mMaxHTMLLength = bytes;
}

void HVHTTPQueue::setSimultaneousConnections(int connections)
{
    d->mMaxConnections = std::max(connections, 1);
}

int HVHTTPQueue::currentNumberOfConnections() const
{
    return d->mRunning;
}

void HVHTTPQueue::setMinInterval(const QString &host, milliseconds interval)
{
    d->mPace.setMinInterval(host.toLower(), interval);
}

void HVHTTPQueue::setCacheDiskCapacity(qint64 bytes)
{
    d->mCache.setDiskCapacity(bytes);
}

void HVHTTPQueue::addURL(const QUrl &url, QObject *owner, FetchCallback returnMethod, QueueEnd at)
{
    d->addGet(url, {owner, std::move(returnMethod)}, at, CacheUse::KeptIfAny, nullptr);
}

void HVHTTPQueue::addURLUsingIndicator(const QUrl &url, QObject *owner, FetchCallback returnMethod,
                                       Progress *indicator)
{
    if (indicator)
        indicator->setIndeterminate(true);
    d->addGet(url, {owner, std::move(returnMethod)}, QueueEnd::Back, CacheUse::KeptIfAny,
              indicator);
}

void HVHTTPQueue::addURLIgnoringCache(const QUrl &url, QObject *owner, FetchCallback returnMethod)
{
    d->addGet(url, {owner, std::move(returnMethod)}, QueueEnd::Back, CacheUse::AskServer, nullptr);
}

bool HVHTTPQueue::postURL(const QUrl &url, QObject *owner, FetchCallback returnMethod,
                          const QByteArray &data)
{
    if (!isFetchable(url) || data.isEmpty() || d->mFailedHosts.failedLately(url.host()))
        return false;
    d->sendAtOnce(url, {owner, std::move(returnMethod)}, FetchMethod::Post, data);
    return true;
}

void HVHTTPQueue::getHeadersForURL(const QUrl &url, QObject *owner, FetchCallback returnMethod)
{
    d->sendAtOnce(url, {owner, std::move(returnMethod)}, FetchMethod::Head, {});
}

void HVHTTPQueue::cancelURL(const QUrl &url, const QObject *owner)
{
    const QList<FetchPointer> fetches = d->mFetches.values(url);
    for (const FetchPointer &fetch : fetches)
        d->cancel(fetch, owner);
    d->startWaiting();
}

void HVHTTPQueue::cancelAll()
{
    const QList<FetchPointer> fetches = d->mFetches.values();
    for (const FetchPointer &fetch : fetches)
        if (fetch->load)
            d->cancel(fetch, nullptr);
}

void HVHTTPQueue::removeURLFromCache(const QUrl &url)
{
    d->mCache.remove(url);
}

int HVHTTPQueue::numberOfRows() const
{
    return d->mNumberOfRows;
}

QUrl HVHTTPQueue::urlOfRow(int row) const
{
    return d->rows().at(row)->url;
}

QString HVHTTPQueue::statusOfRow(int row) const
{
    const Fetch *fetch = d->rows().at(row);
    if (!fetch->load)
        return QStringLiteral("-Queued-");
    if (!fetch->load->hasResponse())
        return QStringLiteral("-Wait-");
    return QStringLiteral("%1 bytes").arg(fetch->load->bytesReceived());
}
