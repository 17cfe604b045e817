#pragma once

#include "gathering/connectionpool.h"
#include "gathering/fetcherrors.h"

#include <QNetworkReply>
#include <QPointer>
#include <QTimer>

/// The error for an address that may not be fetched.
FetchError notFetchableError(const QUrl &url);

/// How one load ended.
struct LoadOutcome {
    QByteArray data;
    std::optional<QString> MIMEType; ///< absent after a failure
    std::optional<FetchError> error;
    int status = 0; ///< 0 without a response
    bool cameInTheClear = false; ///< any step of the way, redirects included, was so
    QUrl finalURL; ///< of the last request
    QByteArray retryAfter; ///< the header of that name, as it stands
    bool mayBeStored = false; ///< a whole answer of status 200 that does not forbid it
};

/// One exchange with a server, redirects included: keeps to its limits whatever the server does,
/// and ends once. Statuses of 400 and above end it like any other, with their body.
class HttpLoad : public QObject {
    Q_OBJECT

public:
    struct Bounds {
        std::chrono::milliseconds silence;
        std::chrono::milliseconds total;
        int redirects; ///< as many are followed
        qint64 bodyBytes; ///< more than that is a failure
        qint64 htmlBytes; ///< a text/html page is cut there and counts as whole; 0: never
        /// How long a request that a redirect asks for waits for its turn at that host.
        std::function<std::chrono::milliseconds(const QString &host)> turnOfRedirect;
    };

    /// Sends the message through the pool, which must outlive the load. `isOnline` is asked when a
    /// host is not found.
    HttpLoad(ConnectionPool &pool, HttpMessage message, const Bounds &bounds, OnlineCheck isOnline);
    /// Cuts the connection if the load is still going on; nothing is reported then.
    ~HttpLoad() override;

    [[nodiscard]] bool hasResponse() const { return mHasResponse; }
    [[nodiscard]] qint64 bytesReceived() const { return mData.size(); }

    /// Ends the load without a report.
    void cutOff();

Q_SIGNALS:
    void responded(qint64 expectedBytes); ///< -1: the server did not say
    void received(qint64 bytesSoFar, qint64 newOnes);
    void ended(const LoadOutcome &outcome);

private:
    void send();
    void dropReply();
    void followTo(const QUrl &target);
    void takeResponse();
    void takeData();
    void takeEnd();
    [[nodiscard]] bool isCutPage() const;
    void fail(const FetchError &error);
    void finish(bool isWhole);

    ConnectionPool &mPool;
    HttpMessage mMessage;
    QPointer<QNetworkReply> mReply; ///< null once the load has ended
    Bounds mBounds;
    OnlineCheck mIsOnline;
    QTimer mSilence;
    QTimer mTotal;
    QTimer mTurn; ///< of a redirect
    QByteArray mData;
    QString mMIMEType;
    int mRedirects = 0;
    bool mHasResponse = false;
    bool mCameInTheClear;
};
