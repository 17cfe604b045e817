#include "itunes/itunesinterface.h"
#include "itunes/scriptrunner.h"
#include "itunes/scripttext.h"
#include "support/fakeclock.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Notes the scripts that it is given, and answers as told.
class NotingRunner : public ScriptRunner {
public:
    std::optional<QString> run(const QString &script) override
    {
        scripts << script;
        onRun();
        return answer;
    }
    bool isApplicationRunning(const QString &name) override
    {
        applications << name;
        return isRunning;
    }

    QStringList scripts;
    QStringList applications;
    std::optional<QString> answer;
    bool isRunning = true;
    std::function<void()> onRun = [] {};
};

QString resource(const QString &key, const QList<ScriptArgument> &arguments)
{
    return ScriptText::filled(*ScriptText::ofResource(key), arguments).value();
}

} // namespace

class TestiTunesInterface : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        mRunner = std::make_unique<NotingRunner>();
        mSlept = mPassed = 0ms;
        Waiting waiting;
        waiting.clock = &mClock;
        waiting.sleep = [this](auto time) { mClock.advance(time), mSlept += time, ++mSleeps; };
        waiting.letPass = [this](auto time) { mPassed += time; };
        mItunes = std::make_unique<iTunesInterface>(*mRunner, waiting);
    }

    void namesInScriptsAreNoCommands()
    {
        mItunes->displayPlaylist(u"a\" & \\\r%d"_s);
        mItunes->valueOfField(u"year"_s, u"%@"_s);
        mItunes->refreshAndGetPathOfSongWithID(5, {});
        const QStringList sent{
            u"tell app \"iTunes\"\rset view of item 1 of browser windows to playlist "
            "\"a\\\" & \\\\\\r%d\"\rend tell"_s,
            u"tell app \"iTunes\"\rreturn year of track \"%@\" of playlist \"Library\"\rend tell"_s,
            resource(u"iTunes_refresh_dbid"_s, {ScriptArgument::playlist({}), 5})};
        mItunes->valueOfField(u"name\rquit"_s, u"x"_s); // no field
        mItunes->refreshAndGetPathOfSongWithID(0, {});
        mItunes->refreshAndGetPathOfSongWithTitle(u"x"_s, {});
        QCOMPARE(mRunner->scripts, sent);
    }

    void answersAreReadLineByLine()
    {
        const auto identifiers = [this](const QString &contents) {
            mRunner->answer = contents;
            return mItunes->identifiersForPlaylistIndex(1);
        };
        QVERIFY(!identifiers(u"/a.mp3"_s));
        QCOMPARE(identifiers(u"/a.mp3\r7\r/b.mp3"_s)->size(), 1);
        QCOMPARE(identifiers(u"/a.mp3\r7\r/b.mp3\r8"_s)->last().databaseID, u"8"_s);
        mRunner->answer = u"/a|@7|@8"_s;
        QVERIFY(!mItunes->identifiersForTrackIndex(1, 1));
        mRunner->answer = u"Sea|@none|@true\rParty Shuffle|@Party Shuffle|@false"_s;
        QCOMPARE(mItunes->playlistsInfo()->last()[1], u"Party Shuffle"_s);
        QCOMPARE(mItunes->indexOfPlaylist(u"x"_s), -1);
    }

    void aScriptInsideAScriptGivesUpAfterFiveSeconds()
    {
        bool hasRun = false;
        mRunner->onRun = [&] { hasRun = mItunes->stringFromScript(u"inner"_s).has_value(); };
        mRunner->answer = u"x"_s;
        QVERIFY(mItunes->stringFromScript(u"outer"_s));
        QVERIFY(!hasRun);
        QCOMPARE(mRunner->scripts, {u"outer"_s});
        QCOMPARE(mSlept, 5000ms);
        QCOMPARE(mSleeps, 25);
    }

    void playingLaunchesTheProgram()
    {
        mRunner->isRunning = false;
        mRunner->answer = u"1"_s;
        QVERIFY(mItunes->playTrackNamed(u"Fog"_s, u"Nila"_s, 0, u"Sea"_s));
        QCOMPARE(mPassed, 2000ms);
        QCOMPARE(mRunner->scripts,
                 QStringList({resource(u"iTunes_Playlist_Names"_s, {}),
                              resource(u"iTunes_play_title_artist"_s, {u"Fog"_s, u"Nila"_s})}));
        mRunner->isRunning = true;
        QVERIFY(mItunes->isiTunesRunning());
        mRunner->isRunning = false;
        QVERIFY(mItunes->isiTunesRunning()); // the answer is kept
        mRunner->scripts.clear();
        mRunner->answer = u"0"_s;
        QVERIFY(!mItunes->playTrackNamed(u"Fog"_s, u"Nila"_s, 2, u"Sea"_s));
        QCOMPARE(mRunner->scripts.size(), 3);
        QCOMPARE(mRunner->scripts[1],
                 resource(u"iTunes_play_playlist"_s, {u"Sea"_s, u"Fog"_s, u"Nila"_s, 2}));
        QCOMPARE(mRunner->applications.last(), u"iTunes"_s);
    }

private:
    FakeClock mClock;
    std::chrono::milliseconds mSlept = 0ms;
    std::chrono::milliseconds mPassed = 0ms;
    int mSleeps = 0;
    std::unique_ptr<NotingRunner> mRunner;
    std::unique_ptr<iTunesInterface> mItunes;
};

QTEST_GUILESS_MAIN(TestiTunesInterface)
#include "tst_itunesinterface.moc"
