#pragma once

#include <QHash>
#include <QList>
#include <QPointer>
#include <QTcpServer>
#include <QUrl>

#include <chrono>
#include <functional>
#include <optional>

class QTcpSocket;

/// What the test server sends for one request, and how it behaves afterwards. Aggregates are
/// written in place: `{.status = 404, .body = "gone"}`.
struct HttpAnswer {
    enum class Then {
        KeepAlive, ///< wait for the next request, as a good server does
        Close,
        Reset, ///< end the connection the hard way
        Stall, ///< send nothing more and keep the connection
        RepeatBody, ///< send the body again and again, for ever
        DripBody ///< send the body's bytes in turn, slowly, for ever
    };

    int status = 200;
    QByteArray type = "text/plain"; ///< empty: no Content-Type
    QByteArray body{};
    bool echoesBody = false; ///< what was sent instead of `body`
    QList<QByteArray> headers{}; ///< further lines, without their ends
    std::chrono::milliseconds delay{0}; ///< before the first byte
    /// Content-Length where it is not the body's own; -1: none is sent.
    std::optional<qint64> claimedLength{};
    Then then = Then::KeepAlive;
    QByteArray raw{}; ///< sent as it stands instead of status, headers and body
};

/// A request as the server read it.
struct SeenRequest {
    QByteArray method;
    QString path; ///< with the query
    QHash<QByteArray, QByteArray> headers; ///< names in lower case
    QByteArray body;
};

/// A small HTTP server on loopback that serves a table of answers and misbehaves as told. It runs
/// in the event loop of the thread that made it.
class HttpServer : public QTcpServer {
public:
    HttpServer();

    [[nodiscard]] QUrl url(const QString &path) const
    {
        return QUrl(QStringLiteral("http://127.0.0.1:%1%2").arg(serverPort()).arg(path));
    }

    /// Answers the path's first request with the first answer and so on; the last one is given for
    /// ever. Paths that were never served give 404.
    void serveInTurn(const QString &path, const QList<HttpAnswer> &answers)
    {
        mAnswers.insert(path, answers);
    }
    void serve(const QString &path, const HttpAnswer &answer) { mAnswers.insert(path, {answer}); }

    /// From now on `chooser` says what every request is answered, whatever was served.
    void serveBy(std::function<HttpAnswer(const SeenRequest &)> chooser)
    {
        mChooser = std::move(chooser);
    }

    /// From now on requests are read but not answered, until release().
    void hold() { mIsHolding = true; }
    void release();

    /// All requests so far, in the order in which they came.
    [[nodiscard]] const QList<SeenRequest> &requests() const { return mRequests; }
    [[nodiscard]] QStringList paths() const;
    /// The most requests that were unanswered at one time.
    [[nodiscard]] int mostAtOnce() const { return mMostAtOnce; }

private:
    void take(QTcpSocket *socket, const SeenRequest &request);
    void answer(QTcpSocket *socket, const SeenRequest &request);
    void send(QTcpSocket *socket, const HttpAnswer &answer);

    QHash<QString, QList<HttpAnswer>> mAnswers;
    std::function<HttpAnswer(const SeenRequest &)> mChooser;
    QList<SeenRequest> mRequests;
    QList<std::pair<QPointer<QTcpSocket>, SeenRequest>> mHeld;
    int mUnanswered = 0;
    int mMostAtOnce = 0;
    bool mIsHolding = false;
};
