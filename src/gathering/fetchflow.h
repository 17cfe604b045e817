#pragma once

#include "gathering/failedhosts.h"
#include "gathering/fetchlimits.h"
#include "gathering/fetchline.h"
#include "gathering/fetchtable.h"
#include "gathering/floodwatch.h"
#include "gathering/hostmanners.h"
#include "gathering/hostpace.h"
#include "gathering/httpcache.h"
#include "gathering/queueend.h"

#include <QSet>

/// How fetches go from asked to answered: through the line, past the hosts that are left alone,
/// the kept answers and the pace of hosts, to a server and back. Nothing is answered from inside a
/// call, and whoever is here when it is destroyed is answered with the URL alone.
class FetchFlow : public QObject {
    Q_OBJECT

public:
    FetchFlow(const QString &cacheFolder, const Clock &clock, const FetchLimits &limits,
              OnlineCheck isOnline);
    ~FetchFlow() override;

    void addGet(const QUrl &url, OwedResult owed, QueueEnd at, CacheUse cacheUse,
                Progress *indicator, qint64 mostBytes = 0);
    /// A POST or HEAD, which waits for nothing but its host's pace.
    void sendAtOnce(const QUrl &url, OwedResult owed, FetchMethod method, const QByteArray &body);
    void cancel(const QUrl &url, const QObject *owner);
    void cancelLoading();
    void startWaiting();

    void setAgent(const QString &agent) { mAgentID = agent; }
    [[nodiscard]] QString agent() const { return mAgentID; }
    void setManners(const QString &host, const QString &asker, const HostManners &manners);
    void setMaximumHTMLLength(qint64 bytes) { mMaxHTMLLength = bytes; }
    void setMaxConnections(int connections) { mMaxConnections = connections; }
    [[nodiscard]] int running() const { return mRunning; }
    [[nodiscard]] HttpCache &cache() { return mCache; }
    [[nodiscard]] FetchTable &table() { return mTable; }
    [[nodiscard]] const FailedHosts &failedHosts() const { return mFailedHosts; }

Q_SIGNALS:
    void rowsChanged();
    void importantLog(const QString &line);

private:
    // Going through the line.
    void begin(const FetchPointer &fetch);
    void comeBack(const FetchPointer &fetch);
    [[nodiscard]] bool answerWithoutAsking(const FetchPointer &fetch);
    void park(const FetchPointer &fetch, std::chrono::milliseconds wait);
    void releaseIn(const QString &host, std::chrono::milliseconds wait);
    void release(const QString &host);
    void load(const FetchPointer &fetch);
    [[nodiscard]] HttpLoad::Bounds boundsFor(const Fetch &fetch);
    [[nodiscard]] QString agentFor(const QString &host) const;

    // Ending.
    void loadEnded(const FetchPointer &fetch, const LoadOutcome &outcome);
    [[nodiscard]] std::optional<std::chrono::milliseconds>
    askedToWait(const QString &host, const LoadOutcome &outcome) const;
    [[nodiscard]] bool retryLater(const FetchPointer &fetch, const LoadOutcome &outcome);
    void takeFailure(const QUrl &url, const FetchError &error);
    void answer(const FetchPointer &fetch, FetchResult result);
    void cancel(const FetchPointer &fetch, const QObject *owner);
    void dropLoad(Fetch &fetch);
    void rowsChange();

    const Clock &mClock;
    FetchLimits mLimits;
    OnlineCheck mIsOnline;
    ConnectionPool mPool; ///< stands before the fetches, whose loads use it
    HttpCache mCache;
    FailedHosts mFailedHosts;
    HostPace mPace;
    QHash<QString, HostMannersTold> mMannersTold; ///< by host, in lower case
    QHash<QString, HostManners> mManners; ///< what comes of it
    FloodWatch mFloodWatch;
    FetchLine mLine;
    FetchTable mTable;
    QSet<QString> mHostsToRelease; ///< a timer runs for them
    QString mAgentID = QStringLiteral("Mozilla/4.0 (compatible; MSIE 6.0b; Windows 98)");
    qint64 mMaxHTMLLength = 0;
    int mMaxConnections = 8;
    int mRunning = 0;
    int mRunningGets = 0;
    qint64 mFirstPlace = 0;
    qint64 mLastPlace = 0;
    bool mRowsChangeIsTold = false;
    bool mIsStarting = false;
    bool mLastConnectionFailedBecauseOfNoInternet = false;
};
