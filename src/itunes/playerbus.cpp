#include "itunes/playerbus.h"

#include "base/log.h"
#include "itunes/sessionbus.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVariant>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto greetingLimit = 200ms;
constexpr auto listLimit = 200ms;
/// How long a player that let a call pass, or a bus that is not there, is left alone, so that a run
/// over many songs does not wait for each.
constexpr auto muteTime = 30s;
/// More at once are no players of a user.
constexpr qsizetype maxPlayers = 32;

const QString namePrefix = u"org.mpris.MediaPlayer2."_s;

int inMilliseconds(PlayerBus::Limit limit)
{
    return static_cast<int>(limit.count());
}

QDBusMessage callOf(const QString &player, const QString &interface, const QString &method,
                    const QVariantList &arguments)
{
    auto message =
        QDBusMessage::createMethodCall(player, u"/org/mpris/MediaPlayer2"_s, interface, method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    return message;
}

/// What a player sent as the value of a property, whatever it sent.
QVariant propertyIn(const QDBusMessage &reply)
{
    const QVariant sent = reply.arguments().value(0);
    QVariant value = sent.metaType() == QMetaType::fromType<QDBusVariant>()
        ? sent.value<QDBusVariant>().variant()
        : sent;
    if (value.metaType() != QMetaType::fromType<QDBusArgument>())
        return value;
    const auto argument = value.value<QDBusArgument>();
    return argument.currentSignature() == u"a{sv}" ? qdbus_cast<QVariantMap>(argument) : QVariant();
}

bool isTimeout(const QDBusMessage &reply)
{
    return reply.type() == QDBusMessage::ErrorMessage
        && (reply.errorName() == u"org.freedesktop.DBus.Error.NoReply"
            || reply.errorName() == u"org.freedesktop.DBus.Error.Timeout"
            || reply.errorName() == u"org.freedesktop.DBus.Error.TimedOut");
}

} // namespace

PlayerBus::PlayerBus()
    : mConnection(u"players %1"_s.arg(reinterpret_cast<quintptr>(this)))
{
}

PlayerBus::~PlayerBus()
{
    if (mHasAsked) // else nothing of the bus was loaded, and that need not be now
        QDBusConnection::disconnectFromBus(mConnection);
}

QDBusConnection PlayerBus::bus()
{
    mHasAsked = true;
    QDBusConnection open(mConnection);
    if (open.isConnected() || !mNextTry.hasExpired())
        return open;
    QDBusConnection::disconnectFromBus(mConnection);
    mNextTry.setRemainingTime(muteTime);
    return sessionBusAnswers(greetingLimit)
        ? QDBusConnection::connectToBus(QDBusConnection::SessionBus, mConnection)
        : open;
}

QStringList PlayerBus::players()
{
    const auto question =
        QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                       u"org.freedesktop.DBus"_s, u"ListNames"_s);
    const auto reply = bus().call(question, QDBus::Block, inMilliseconds(listLimit));
    QStringList found;
    for (const QString &name : reply.arguments().value(0).toStringList())
        if (name.startsWith(namePrefix) && !isMute(name))
            found << name;
    found.sort();
    return found.first(std::min(found.size(), maxPlayers));
}

QList<QVariant> PlayerBus::properties(const QStringList &players, const QString &property,
                                      Limit limit)
{
    QList<QDBusPendingCall> calls;
    for (const QString &player : players)
        calls << bus().asyncCall(callOf(player, u"org.freedesktop.DBus.Properties"_s, u"Get"_s,
                                        {u"org.mpris.MediaPlayer2.Player"_s, property}),
                                 inMilliseconds(limit));
    QList<QVariant> values;
    for (qsizetype i = 0; i < calls.size(); ++i) {
        calls[i].waitForFinished();
        const QDBusMessage reply = calls[i].reply();
        noteTimeout(players[i], reply);
        values << (reply.type() == QDBusMessage::ReplyMessage ? propertyIn(reply) : QVariant());
    }
    return values;
}

PlayerBus::Answer PlayerBus::call(const QString &player, const QString &method,
                                  const QVariantList &arguments, Limit limit)
{
    const auto message = callOf(player, u"org.mpris.MediaPlayer2.Player"_s, method, arguments);
    if (isMute(player)) {
        bus().send(message);
        return Answer::Missing;
    }
    const auto reply = bus().call(message, QDBus::Block, inMilliseconds(limit));
    noteTimeout(player, reply);
    if (reply.type() == QDBusMessage::ReplyMessage)
        return Answer::Done;
    return isTimeout(reply) ? Answer::Missing : Answer::Refused;
}

bool PlayerBus::isMute(const QString &player) const
{
    const auto until = mMute.constFind(player);
    return until != mMute.constEnd() && !until->hasExpired();
}

void PlayerBus::noteTimeout(const QString &player, const QDBusMessage &reply)
{
    if (!isTimeout(reply))
        return;
    mMute.insert(player, QDeadlineTimer(muteTime));
    qCWarning(logItunes, "the player %s does not answer", qUtf8Printable(player));
}
