#include "itunes/itunesinterface.h"

#include "itunes/scriptrunner.h"
#include "itunes/scripttext.h"
#include "text/integervalue.h"

#include <QEventLoop>
#include <QThread>
#include <QTimer>

#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto lockStep = 200ms;
constexpr auto lockPatience = 5s;
/// How long a program that was just launched takes until it plays something.
constexpr auto launchTime = 2s;

const QString lineEnd = u"\r"_s;
const QString fieldSeparator = u"|@"_s;

int numberIn(const std::optional<QString> &result)
{
    bool isNumber = false;
    const int number = result.value_or(QString()).toInt(&isNumber);
    return isNumber ? number : -1;
}

} // namespace

Waiting Waiting::real()
{
    Waiting waiting;
    waiting.sleep = [](std::chrono::milliseconds time) {
        QThread::msleep(static_cast<unsigned long>(time.count()));
    };
    waiting.letPass = [](std::chrono::milliseconds time) {
        QEventLoop loop;
        QTimer::singleShot(time, &loop, &QEventLoop::quit);
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    };
    return waiting;
}

iTunesInterface::iTunesInterface(ScriptRunner &runner, Waiting waiting)
    : mRunner(&runner)
    , mWaiting(std::move(waiting))
{
}

bool iTunesInterface::lock()
{
    const Clock::Time called = mWaiting.clock->now();
    while (mIsLocked) {
        if (mWaiting.clock->now() - called >= lockPatience)
            return false;
        mWaiting.sleep(lockStep);
    }
    mIsLocked = true;
    return true;
}

std::optional<QString> iTunesInterface::stringFromScript(const QString &script)
{
    if (!mRunner || !lock())
        return std::nullopt;
    auto result = mRunner->run(script);
    unlock();
    return result;
}

int iTunesInterface::intFromScript(const QString &script)
{
    return numberIn(stringFromScript(script));
}

std::optional<QString> iTunesInterface::stringFromScriptFile(const QString &key)
{
    return runFile(key, {});
}

std::optional<QString> iTunesInterface::runFile(const QString &key, const Arguments &arguments)
{
    const auto script = ScriptText::ofResource(key);
    return script ? runFilled(*script, arguments) : std::nullopt;
}

std::optional<QString> iTunesInterface::runFilled(QStringView script, const Arguments &arguments)
{
    const auto text = ScriptText::filled(script, arguments);
    return text ? stringFromScript(*text) : std::nullopt;
}

bool iTunesInterface::isiTunesRunning() const
{
    if (mRunningState == -1 && mRunner)
        mRunningState = mRunner->isApplicationRunning(u"iTunes"_s) ? 1 : 0;
    return mRunningState == 1;
}

int iTunesInterface::iTunesMajorVersion()
{
    if (!isiTunesRunning() || mMajorVersion != -1)
        return mMajorVersion;
    if (const auto version = stringFromScript(ScriptText::version.toString())) {
        const auto point = version->indexOf(u'.');
        mMajorVersion = integerValue(point > 0 ? version->first(point) : *version);
    }
    return mMajorVersion;
}

std::optional<QString> iTunesInterface::pathOfCurrentlyPlayingTrack()
{
    if (!isiTunesRunning())
        return std::nullopt;
    return stringFromScriptFile(u"iTunes_play_currently_playing"_s);
}

void iTunesInterface::pausePlaying()
{
    if (isiTunesRunning())
        stringFromScript(ScriptText::pause.toString());
}

void iTunesInterface::resumePlaying()
{
    if (isiTunesRunning())
        stringFromScript(ScriptText::resume.toString());
}

bool iTunesInterface::playTrackNamed(const QString &title, const QString &byArtist, int index,
                                     const QString &ofPlaylist)
{
    if (!isiTunesRunning())
        launchiTunes();
    if (!ofPlaylist.isEmpty() && index != 0) {
        displayPlaylist(ofPlaylist);
        if (numberIn(runFile(u"iTunes_play_playlist"_s, {ofPlaylist, title, byArtist, index})) > 0)
            return true;
    }
    return numberIn(runFile(u"iTunes_play_title_artist"_s, {title, byArtist})) >= 1;
}

/// Any script that asks for something launches it.
void iTunesInterface::launchiTunes()
{
    static_cast<void>(playlists());
    resetIsiTunesRunning();
    mWaiting.letPass(launchTime);
}

std::optional<QStringList> iTunesInterface::playlists()
{
    const auto names = stringFromScriptFile(u"iTunes_Playlist_Names"_s);
    return names ? std::optional(names->split(lineEnd)) : std::nullopt;
}

std::optional<QList<QStringList>> iTunesInterface::playlistsInfo()
{
    const auto lines = stringFromScriptFile(u"iTunes_Playlist_Info"_s);
    if (!lines)
        return std::nullopt;
    QList<QStringList> result;
    for (const QString &line : lines->split(lineEnd))
        result << line.split(fieldSeparator);
    return result;
}

void iTunesInterface::displayPlaylist(const QString &name)
{
    runFilled(ScriptText::displayPlaylist, {name});
}

int iTunesInterface::indexOfPlaylist(const QString &name)
{
    return numberIn(runFilled(ScriptText::indexOfPlaylist, {name}));
}

int iTunesInterface::numberOfTracksInPlaylistIndex(int index)
{
    return numberIn(runFilled(ScriptText::numberOfTracks, {index}));
}

std::optional<QList<TrackIdentifiers>> iTunesInterface::identifiersForPlaylistIndex(int index)
{
    const auto contents = runFile(u"iTunes_Playlist_Contents"_s, {index});
    const QStringList lines = contents.value_or(QString()).split(lineEnd);
    if (lines.size() < 2)
        return std::nullopt;
    QList<TrackIdentifiers> result;
    result.reserve(lines.size() / 2);
    for (qsizetype at = 0; at + 1 < lines.size(); at += 2)
        result << TrackIdentifiers{lines[at], lines[at + 1]};
    return result;
}

std::optional<TrackIdentifiers> iTunesInterface::identifiersForTrackIndex(int track,
                                                                          int ofPlaylistIndex)
{
    const auto result = runFilled(ScriptText::identifiersOfTrack, {track, ofPlaylistIndex});
    const QStringList parts = result.value_or(QString()).split(fieldSeparator);
    return parts.size() == 2 ? std::optional(TrackIdentifiers{parts[0], parts[1]}) : std::nullopt;
}

std::optional<QString> iTunesInterface::valueOfField(const QString &field, int ofTrackIndex,
                                                     const QString &ofPlayList)
{
    const auto name = ScriptArgument::field(field);
    return name ? runFilled(ScriptText::fieldOfTrack, {*name, ofTrackIndex, ofPlayList})
                : std::nullopt;
}

int iTunesInterface::intValueOfField(const QString &field, int ofTrackIndex,
                                     const QString &ofPlayList)
{
    return numberIn(valueOfField(field, ofTrackIndex, ofPlayList));
}

std::optional<QString> iTunesInterface::valueOfField(const QString &field,
                                                     const QString &ofTrackNamed)
{
    const auto name = ScriptArgument::field(field);
    return name ? runFilled(ScriptText::fieldOfTrackNamed, {*name, ofTrackNamed}) : std::nullopt;
}

std::optional<QString>
iTunesInterface::refreshAndGetPathOfSongWithID(int databaseID,
                                               const std::optional<QString> &inPlaylist)
{
    if (!isiTunesRunning() || databaseID < 1)
        return std::nullopt;
    return runFile(u"iTunes_refresh_dbid"_s, {ScriptArgument::playlist(inPlaylist), databaseID});
}

std::optional<QString> iTunesInterface::refreshAndGetPathOfSongWithTitle(const QString &title,
                                                                         const QString &artist)
{
    if (!isiTunesRunning() || title.isEmpty() || artist.isEmpty())
        return std::nullopt;
    return runFile(u"iTunes_refresh_title_artist"_s, {title, artist});
}
