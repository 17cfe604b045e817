#pragma once

#include "gathering/fetchlimits.h"
#include "gathering/fetchresult.h"

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
    bool cameInTheClear = false; ///< some step of the way, redirects included, was no https
    QByteArray retryAfter; ///< the header of that name, as it stands
    bool mayBeStored = false; ///< a whole answer of status 200 that does not forbid it
};

/// One exchange with a server: keeps to its limits whatever the server does, and ends once.
/// Statuses of 400 and above end it like any other, with their body.
class HttpLoad : public QObject {
    Q_OBJECT

public:
    struct Bounds {
        std::chrono::milliseconds silence;
        std::chrono::milliseconds total;
        qint64 bodyBytes; ///< more than that is a failure
        qint64 htmlBytes; ///< a text/html page is cut there and counts as whole; 0: never
    };

    /// Takes the reply, which must be on its way.
    HttpLoad(QNetworkReply *reply, const Bounds &bounds);
    /// Cuts the connection if the load is still going on; nothing is reported then.
    ~HttpLoad() override;

    [[nodiscard]] bool hasResponse() const { return mHasResponse; }
    [[nodiscard]] qint64 bytesReceived() const { return mData.size(); }

    /// Ends the load without a report.
    void cutOff();

Q_SIGNALS:
    void responded(qint64 expectedBytes); ///< -1: the server did not say
    void received(qint64 bytesSoFar);
    void ended(const LoadOutcome &outcome);

private:
    void takeRedirect(const QUrl &target);
    void takeResponse();
    void takeData();
    void takeEnd();
    [[nodiscard]] bool isCutPage() const;
    void fail(const FetchError &error);
    void finish(bool isWhole);

    QPointer<QNetworkReply> mReply; ///< null once the load has ended
    Bounds mBounds;
    QTimer mSilence;
    QTimer mTotal;
    QByteArray mData;
    QString mMIMEType;
    bool mHasResponse = false;
    bool mCameInTheClear;
};
