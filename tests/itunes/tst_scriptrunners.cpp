#include "itunes/itunesinterface.h"
#include "itunes/localrunner.h"
#include "itunes/osascriptrunner.h"
#include "itunes/scripttext.h"
#include "itunes/systemrunner.h"
#include "support/table.h"
#include "support/tempfiles.h"

#include <QDateTime>
#include <QDeadlineTimer>
#include <QProcess>
#include <QUrl>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QString hostileTitle = u"\" & (do shell script \"touch %@\") & \""_s;

/// A library of two tracks, the second without a file, in a list with an unknown one.
QByteArray library(const QString &song)
{
    const QString text = QString::fromUtf8(
        fileContents(qEnvironmentVariable("TAGWRIGHT_TEST_DATA") + u"/library/two-tracks.xml"_s));
    return text.arg(QString(hostileTitle).replace(u'&', u"&amp;"_s), song).toUtf8();
}

QByteArray nextLine(QProcess &process)
{
    while (!process.canReadLine() && process.waitForReadyRead()) { }
    return process.readLine().trimmed();
}

} // namespace

class TestScriptRunners : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        mFolder = std::make_unique<QTemporaryDir>();
        qputenv("HOME", mFolder->path().toUtf8());
        qputenv("PATH", QByteArray(mFolder->path().toUtf8() + ":/usr/bin:/bin"));
    }

    void argumentsComeOutAsTheyWentIn()
    {
        const QString from = u"do \"%@\" of %@ with \"%@\", %d"_s;
        for (const QString &title :
             {hostileTitle, u"\\\"\\\\\" \\r"_s, u"a\rb\nc\t"_s, u"%@ %d"_s, u""_s}) {
            const auto script = ScriptText::filled(
                from, {title, ScriptArgument::playlist(title), QString(title + u'\a'), -5});
            QVERIFY(!script->contains(u'\r'));
            QCOMPARE(ScriptText::argumentsOf(*script, from).value(),
                     QList<QString>({title, u'"' + title, title, u"-5"_s}));
            QVERIFY(!ScriptText::argumentsOf(*script + u'x', from));
        }
    }

    void osascriptGetsTheTextAndNoShellSeesIt()
    {
        makeOsascript("cat >asked; printf '5\\n'");
        const auto runner = systemScriptRunner({});
        iTunesInterface itunes(*runner);
        QVERIFY(!itunes.isiTunesRunning());
        QCOMPARE(askedOfOsascript(), "return application \"iTunes\" is running");
        QCOMPARE(itunes.indexOfPlaylist(hostileTitle), 5);
        QCOMPARE(askedOfOsascript(),
                 "tell app \"iTunes\"\rreturn index of playlist "
                 "\"\\\" & (do shell script \\\"touch %@\\\") & \\\"\"\rend tell");
    }

    void osascriptResults_data()
    {
        const Table<QByteArray, std::optional<QString>> row("program", "result");
        row("text", "printf 'Ü\\rb\\n'", u"Ü\rb"_s);
        row("empty text", "echo", u""_s);
        row("no result", "cat", std::nullopt);
        row("failed", "echo x; echo 'error (-1728)' >&2; exit 1", std::nullopt);
        row("killed", "echo x; kill -9 $$", std::nullopt);
        row("flood", "yes", std::nullopt);
        row("never ends", "echo x; sleep 1000", std::nullopt);
    }
    void osascriptResults()
    {
        QFETCH(const QByteArray, program);
        makeOsascript(program);
        OsascriptRunner runner(mFolder->filePath(u"osascript"_s),
                               program.contains("sleep") ? 200ms : 60s);
        QTEST(runner.run({}), "result");
        if (program.contains("sleep")) {
            makeOsascript("echo again");
            QVERIFY(!runner.run({})); // it was stuck a moment ago
        }
    }

    /// The player is asked before a write and told things around it, none of which may take long.
    void programThatHangsHoldsNoWriteUp()
    {
        makeOsascript("case $(cat) in *running) echo true;; *) sleep 1000;; esac");
        OsascriptRunner runner(mFolder->filePath(u"osascript"_s));
        iTunesInterface itunes(runner);
        QVERIFY(itunes.isiTunesRunning());
        const QDeadlineTimer limit(2000);
        QVERIFY(!itunes.pathOfCurrentlyPlayingTrack());
        itunes.pausePlaying();
        itunes.resumePlaying();
        QVERIFY(!limit.hasExpired());
    }

    void ourOwnRunnerAnswersFromLibraryAndPlaylists()
    {
        const QString song = mFolder->filePath(u"Music/fog.mp3"_s);
        QVERIFY(QDir(mFolder->path()).mkpath(u"Music/iTunes"_s));
        writeFile(song, "x");
        writeFile(mFolder->filePath(u"Music/Trips.m3u"_s), "fog.mp3\ngone.mp3\n");
        const QString libraryPath = mFolder->filePath(u"Music/iTunes/iTunes Music Library.xml"_s);
        writeFile(libraryPath, library(song));
        QFile libraryFile(libraryPath);
        QVERIFY(libraryFile.open(QIODevice::ReadWrite));
        QVERIFY(libraryFile.setFileTime(QDateTime::currentDateTime().addDays(-1),
                                        QFileDevice::FileModificationTime));
        libraryFile.close();

        LocalRunner runner({{}, mFolder->filePath(u"Music"_s)});
        iTunesInterface itunes(runner);
        QCOMPARE(itunes.playlists().value(),
                 QStringList({u"Mediathek"_s, u"Road & Sea"_s, u"Trips"_s}));
        QCOMPARE(itunes.playlistsInfo().value(),
                 QList<QStringList>({{u"Road & Sea"_s, u"none"_s, u"false"_s},
                                     {u"Trips"_s, u"none"_s, u"false"_s}}));
        const int sea = itunes.indexOfPlaylist(u"Road & Sea"_s);
        QCOMPARE(sea, 2);
        QCOMPARE(itunes.indexOfPlaylist(u"Library"_s), 1);
        QCOMPARE(itunes.indexOfPlaylist(u"no such"_s), -1);
        QCOMPARE(itunes.numberOfTracksInPlaylistIndex(sea), 2);
        QCOMPARE(itunes.numberOfTracksInPlaylistIndex(9), -1);
        const auto tracks = itunes.identifiersForPlaylistIndex(sea);
        QCOMPARE(tracks->size(), 1);
        QCOMPARE(tracks->first().location, song);
        QCOMPARE(tracks->first().databaseID, u"100"_s);
        QCOMPARE(itunes.identifiersForTrackIndex(1, 3)->location, song);
        QVERIFY(!itunes.identifiersForTrackIndex(1, sea));
        QCOMPARE(itunes.intValueOfField(u"year"_s, 2, u"Road & Sea"_s), 2007);
        QCOMPARE(itunes.valueOfField(u"artist"_s, hostileTitle), u"Nila"_s);
        QCOMPARE(itunes.refreshAndGetPathOfSongWithTitle(hostileTitle, u"NILA"_s), song);
        QCOMPARE(itunes.refreshAndGetPathOfSongWithID(100, {}), song);
        writeFile(libraryPath, library(song) + '\n'); // numbers its tracks anew
        QVERIFY(itunes.playlists());
        QVERIFY(!itunes.refreshAndGetPathOfSongWithID(100, {}));
        QVERIFY(!itunes.stringFromScript(u"do shell script \"x\""_s));
    }

    void ourOwnRunnerHasAPlayerPlay()
    {
        const QString song = mFolder->filePath(u"a #1%.mp3"_s);
        writeFile(song, "x");
        writeFile(mFolder->filePath(u"List.m3u"_s), "a #1%.mp3\n");
        QProcess bus;
        bus.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
        qputenv("DBUS_SESSION_BUS_ADDRESS", nextLine(bus));
        QProcess player;
        player.start(
            u"python3"_s,
            {qEnvironmentVariable("TAGWRIGHT_TEST_DATA") + u"/../itunes/stand_in_player.py"_s,
             u"x"_s, u"paused"_s, song});
        QCOMPARE(nextLine(player), "ready");

        LocalRunner runner({{}, mFolder->path()});
        iTunesInterface itunes(runner);
        QVERIFY(itunes.playTrackNamed(u"any"_s, u"any"_s, 1, u"List"_s));
        QCOMPARE(nextLine(player), "OpenUri " + QUrl::fromLocalFile(song).toEncoded());
        QVERIFY(!itunes.playTrackNamed(u"any"_s, u"any"_s, 2, u"List"_s));
        player.kill();
        player.waitForFinished();
        QVERIFY(!itunes.playTrackNamed(u"any"_s, u"any"_s, 1, u"List"_s));
        bus.kill();
        bus.waitForFinished();
    }

private:
    void makeOsascript(const QByteArray &program)
    {
        const QString path = mFolder->filePath(u"osascript"_s);
        writeFile(path, "#!/bin/sh\ncd " + mFolder->path().toUtf8() + "\n" + program + "\n");
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    QByteArray askedOfOsascript() { return fileContents(mFolder->filePath(u"asked"_s)); }

    std::unique_ptr<QTemporaryDir> mFolder;
};

QTEST_GUILESS_MAIN(TestScriptRunners)
#include "tst_scriptrunners.moc"
