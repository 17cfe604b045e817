#pragma once

#include <QDBusConnection>
#include <QDeadlineTimer>
#include <QHash>
#include <QStringList>
#include <QVariant>

#include <chrono>

/// The session bus, as far as music players are concerned. Every call has a time limit; a player
/// that let one pass is not asked again for a while, and none is ever launched.
class PlayerBus {
public:
    using Limit = std::chrono::milliseconds;
    enum class Answer {
        Done,
        Refused, ///< there is no such player, or it said no
        Missing, ///< none came in time; the player may have done it all the same
    };

    PlayerBus();
    PlayerBus(const PlayerBus &) = delete;
    PlayerBus &operator=(const PlayerBus &) = delete;
    ~PlayerBus();

    /// Bus names of the players that answer, sorted; none without a bus.
    [[nodiscard]] QStringList players();

    /// A property of each player, all asked at once; invalid where none came. Dictionaries are
    /// QVariantMap.
    [[nodiscard]] QList<QVariant> properties(const QStringList &players, const QString &property,
                                             Limit limit);

    /// A method of org.mpris.MediaPlayer2.Player. One who let a call pass is told without waiting.
    Answer call(const QString &player, const QString &method, const QVariantList &arguments,
                Limit limit);

private:
    [[nodiscard]] QDBusConnection bus();
    [[nodiscard]] bool isMute(const QString &player) const;
    void noteTimeout(const QString &player, const QDBusMessage &reply);

    const QString mConnection; ///< name of the connection within this process
    bool mHasAsked = false;
    QDeadlineTimer mNextTry{0}; ///< when to look for the bus again, once there was none
    QHash<QString, QDeadlineTimer> mMute; ///< players that let a call pass, and for how long
};
