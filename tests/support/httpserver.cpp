#include "support/httpserver.h"

#include <QTcpSocket>
#include <QTimer>

#include <sys/socket.h>

#include <utility>

namespace {
const QByteArray lineEnd = "\r\n";
const QByteArray headEnd = "\r\n\r\n";
constexpr std::chrono::milliseconds betweenDrops(10);

SeenRequest requestFrom(const QByteArray &head)
{
    QList<QByteArray> lines = head.split('\n');
    const QList<QByteArray> words = lines.takeFirst().split(' ');
    SeenRequest request{words.value(0), QString::fromLatin1(words.value(1)), {}, {}};
    for (const QByteArray &line : std::as_const(lines)) {
        const qsizetype colon = line.indexOf(':');
        request.headers.insert(line.left(colon).toLower(), line.mid(colon + 1).trimmed());
    }
    return request;
}

/// Takes one whole request from the front of what was received.
std::optional<SeenRequest> takeRequest(QTcpSocket *socket)
{
    const QByteArray received = socket->peek(socket->bytesAvailable());
    const qsizetype end = received.indexOf(headEnd);
    if (end < 0)
        return std::nullopt;
    SeenRequest request = requestFrom(received.left(end));
    const qsizetype bodyBegin = end + headEnd.size();
    const qsizetype bodyLength = request.headers.value("content-length").toLongLong();
    if (received.size() < bodyBegin + bodyLength)
        return std::nullopt;
    request.body = socket->read(bodyBegin + bodyLength).mid(bodyBegin);
    return request;
}

QByteArray bytesOf(const HttpAnswer &answer)
{
    if (!answer.raw.isEmpty())
        return answer.raw;
    QByteArray bytes = "HTTP/1.1 " + QByteArray::number(answer.status) + " Said" + lineEnd;
    if (!answer.type.isEmpty())
        bytes += "Content-Type: " + answer.type + lineEnd;
    const qint64 length = answer.claimedLength.value_or(answer.body.size());
    if (length >= 0)
        bytes += "Content-Length: " + QByteArray::number(length) + lineEnd;
    for (const QByteArray &header : answer.headers)
        bytes += header + lineEnd;
    return bytes + lineEnd + answer.body;
}

void reset(QTcpSocket *socket)
{
    const linger atOnce{1, 0};
    setsockopt(static_cast<int>(socket->socketDescriptor()), SOL_SOCKET, SO_LINGER, &atOnce,
               sizeof atOnce);
    socket->abort();
}

void repeat(QTcpSocket *socket, const QByteArray &body)
{
    socket->write(body);
    QObject::connect(socket, &QTcpSocket::bytesWritten, socket, [socket, body] {
        if (socket->bytesToWrite() < body.size())
            socket->write(body);
    });
}

void drip(QTcpSocket *socket, const QByteArray &bytes)
{
    auto *timer = new QTimer(socket);
    QObject::connect(timer, &QTimer::timeout, socket,
                     [socket, body = bytes, next = qsizetype(0)]() mutable {
                         socket->write(body.mid(next++ % body.size(), 1));
                     });
    timer->start(betweenDrops);
}
} // namespace

HttpServer::HttpServer()
{
    connect(this, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket *socket = nextPendingConnection()) {
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
                while (const auto request = takeRequest(socket))
                    take(socket, *request);
            });
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        }
    });
    if (!listen(QHostAddress::LocalHost))
        qFatal("cannot listen on loopback: %s", qPrintable(errorString()));
}

void HttpServer::release()
{
    mIsHolding = false;
    for (const auto &[socket, request] : std::exchange(mHeld, {}))
        if (socket)
            answer(socket, request);
}

QStringList HttpServer::paths() const
{
    QStringList paths;
    for (const SeenRequest &request : mRequests)
        paths.append(request.path);
    return paths;
}

void HttpServer::take(QTcpSocket *socket, const SeenRequest &request)
{
    mRequests.append(request);
    mMostAtOnce = std::max(mMostAtOnce, ++mUnanswered);
    if (mIsHolding)
        mHeld.append({QPointer(socket), request});
    else
        answer(socket, request);
}

void HttpServer::answer(QTcpSocket *socket, const SeenRequest &request)
{
    HttpAnswer chosen{.status = 404, .body = "nothing here"};
    const auto answers = mAnswers.find(request.path);
    if (answers != mAnswers.end())
        chosen = answers->size() > 1 ? answers->takeFirst() : answers->constFirst();
    if (mChooser)
        chosen = mChooser(request);
    if (chosen.echoesBody)
        chosen.body = request.body;
    if (chosen.delay.count() == 0)
        send(socket, chosen);
    else
        QTimer::singleShot(chosen.delay, Qt::PreciseTimer, socket,
                           [this, socket, chosen] { send(socket, chosen); });
}

void HttpServer::send(QTcpSocket *socket, const HttpAnswer &answer)
{
    --mUnanswered;
    socket->write(bytesOf(answer));
    socket->flush();
    using Then = HttpAnswer::Then;
    if (answer.then == Then::Close)
        socket->disconnectFromHost();
    if (answer.then == Then::Reset)
        reset(socket);
    if (answer.then == Then::RepeatBody)
        repeat(socket, answer.body);
    if (answer.then == Then::DripBody)
        drip(socket, answer.body);
}
