#include "gui/singleinstance.h"

#include "base/folders.h"

#include <QCborArray>
#include <QCborValue>
#include <QCryptographicHash>
#include <QDir>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QTimer>

#include <chrono>
#include <memory>

using namespace std::chrono_literals;

namespace {
constexpr auto patience = 2000ms;
/// What a shell passes to a program at most.
constexpr qint64 mostBytes = qint64(4) * 1024 * 1024;
constexpr QByteArrayView taken("taken");

/// In the user's own folder, one for each home.
QString serverName()
{
    const QByteArray home =
        QCryptographicHash::hash(stateFolder().toUtf8(), QCryptographicHash::Sha256);
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation)
        + QStringLiteral("/tagwright-") + QString::fromLatin1(home.toHex().left(16));
}

QStringList absolutePaths(const QStringList &paths)
{
    QStringList absolute;
    for (const QString &path : paths)
        absolute << QDir::current().absoluteFilePath(path);
    return absolute;
}

/// Nothing while the message is not complete; an empty list also for what is none.
std::optional<QStringList> pathsIn(const QByteArray &message)
{
    QCborParserError error;
    const QCborValue value = QCborValue::fromCbor(message, &error);
    if (error.error == QCborError::EndOfFile && message.size() < mostBytes)
        return std::nullopt;
    QStringList paths;
    const QCborArray handed = value.toArray();
    for (const auto &path : handed)
        paths << path.toString();
    paths.removeAll(QString());
    return paths;
}

/// One later start, while it tells what it wants.
struct Visit {
    explicit Visit(QLocalSocket *visitor)
        : socket(visitor)
    {
    }

    QLocalSocket *socket;
    QByteArray message;
};

} // namespace

bool SingleInstance::handOver(const QStringList &paths)
{
    QLocalSocket socket;
    socket.connectToServer(serverName());
    if (!socket.waitForConnected(int(patience.count())))
        return false;
    socket.write(QCborValue(QCborArray::fromStringList(absolutePaths(paths))).toCbor());
    while (socket.bytesToWrite() > 0)
        if (!socket.waitForBytesWritten(int(patience.count())))
            return false;
    return socket.waitForReadyRead(int(patience.count())) && socket.readAll() == taken;
}

bool SingleInstance::listen()
{
    mServer.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&mServer, &QLocalServer::newConnection, this, &SingleInstance::take);
    if (mServer.listen(serverName()))
        return true;
    // Nobody answered, so what stands there was left behind by a program that was killed.
    QLocalServer::removeServer(serverName());
    return mServer.listen(serverName());
}

void SingleInstance::take()
{
    while (QLocalSocket *socket = mServer.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        QTimer::singleShot(patience, socket, [socket] { socket->abort(); });
        const auto visit = std::make_shared<Visit>(socket);
        connect(socket, &QLocalSocket::readyRead, this, [this, visit] {
            visit->message += visit->socket->read(mostBytes - visit->message.size());
            const auto paths = pathsIn(visit->message);
            if (!paths)
                return;
            visit->socket->write(taken.data(), taken.size());
            visit->socket->flush();
            visit->socket->disconnectFromServer();
            Q_EMIT startedAgain(*paths);
        });
    }
}
