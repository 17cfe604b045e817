#include "itunes/mprisplayer.h"

#include "itunes/playeraddress.h"

#include <QUrl>

#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
// Together less than two seconds, with what finding the bus and the players takes.
constexpr auto statusLimit = 400ms;
constexpr auto metadataLimit = 300ms;
constexpr auto pauseLimit = 400ms;
constexpr auto resumeLimit = 400ms;
/// The user waits for this one and knows what for.
constexpr auto openLimit = 2s;
} // namespace

QStringList MprisPlayer::playingPlayers()
{
    const QStringList players = mBus.players();
    const QList<QVariant> statuses = mBus.properties(players, u"PlaybackStatus"_s, statusLimit);
    QStringList playing;
    for (qsizetype i = 0; i < players.size(); ++i)
        if (statuses[i].toString() == u"Playing")
            playing << players[i];
    return playing;
}

std::optional<QString> MprisPlayer::pathOfPlayingTrack()
{
    mPlaying.clear();
    const QStringList players = playingPlayers();
    const QList<QVariant> metadata = mBus.properties(players, u"Metadata"_s, metadataLimit);
    for (qsizetype i = 0; i < players.size(); ++i) {
        const QVariant address = metadata[i].toMap().value(u"xesam:url"_s);
        if (auto path = pathOfPlayerAddress(address.toString())) {
            mPlaying = players[i];
            return path;
        }
    }
    return std::nullopt;
}

void MprisPlayer::pause()
{
    const QString player = mPlaying.isEmpty() ? playingPlayers().value(0) : mPlaying;
    // One that does not answer may have heard it all the same, and is resumed as well.
    if (!player.isEmpty()
        && mBus.call(player, u"Pause"_s, {}, pauseLimit) != PlayerBus::Answer::Refused)
        mPaused = player;
}

void MprisPlayer::resume()
{
    if (!mPaused.isEmpty())
        mBus.call(std::exchange(mPaused, {}), u"Play"_s, {}, resumeLimit);
}

bool MprisPlayer::play(const QString &path)
{
    const QString playing = playingPlayers().value(0);
    const QString player = playing.isEmpty() ? mBus.players().value(0) : playing;
    const QString address = QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded());
    return !player.isEmpty()
        && mBus.call(player, u"OpenUri"_s, {address}, openLimit) == PlayerBus::Answer::Done;
}
