#include "app/worklist.h"

#include "app/tasksetup.h"
#include "base/texts.h"
#include "gathering/librarylending.h"
#include "itunes/itunesinterface.h"
#include "songs/songfileinfocache.h"
#include "support/httpserver.h"
#include "support/songs.h"
#include "support/table.h"
#include "support/testsource.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

GatheringOptions wanting(Assets assets)
{
    GatheringOptions options;
    options.gather = assets;
    return options;
}

const WriteOptions standard{.dialect = ID3Dialect::standard()};
const GatheringOptions albumAndYear = wanting(AssetAlbumName | AssetYear);
} // namespace

class TestWorkList : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installTexts(); }
    void init()
    {
        mWorkList.reset();
        mFolder = std::make_unique<QTemporaryDir>();
        mServer = std::make_unique<HttpServer>();
        mServer->serve(u"/Neon%20Rain"_s, {.body = "Paper Moons;1987"});
        mQueue = std::make_unique<HVHTTPQueue>(QString());
        setUp({});
        mLog.disconnect();
        connect(&mLog, &UserLog::lineAdded, this, [this](const QString &line) { mLines << line; });
    }

    void onlyNarrowerArtworkIsOverwritten()
    {
        GatheringOptions options;
        options.overwriteImageThreshold = 300;
        QCOMPARE(overwritableAssets(options, 0), Assets());
        options.overwrite = AssetArtwork | AssetYear;
        QCOMPARE(overwritableAssets(options, 0), options.overwrite);
        QCOMPARE(overwritableAssets(options, 299), options.overwrite);
        QCOMPARE(overwritableAssets(options, 300), Assets(AssetYear));
        options.overwriteImageThreshold = preferences::noLimit;
        QCOMPARE(overwritableAssets(options, 30000), options.overwrite);
    }

    void changedSongIsWritten()
    {
        const auto neonRain = song(u"Neon Rain"_s);
        connect(mWorkList.get(), &WorkList::songStarted, this, [&] {
            QCOMPARE(neonRain->activityStatus(), SongStatus::Processing);
            QCOMPARE(mWorkList->statusLine(), u"The Lanterns - Neon Rain (1 remaining)"_s);
        });
        const auto complete = song(u"Complete"_s);
        complete->setActivityStatus(SongStatus::Locked);
        run({neonRain, complete}, wanting(AssetAlbumName | AssetYear | AssetLyrics));
        const SongOutcome &outcome = mOutcomes.first();
        QCOMPARE(outcome.changed, AssetAlbumName | AssetYear);
        QCOMPARE(outcome.missing, Assets(AssetLyrics));
        QCOMPARE(outcome.sources.value(AssetYear), u"TestInterface"_s);
        QVERIFY(outcome.written && !outcome.failed && !outcome.error);
        QCOMPARE(neonRain->activityStatus(), SongStatus::Ready);
        QVERIFY(!neonRain->hasInfotagCached());
        QCOMPARE(neonRain->infotag()->album(), u"Paper Moons"_s);
        QCOMPARE(mWorkList->songsProcessed(), 2);
        QCOMPARE(mWorkList->songsModified(), 1);
        QCOMPARE(mLines.first(), u"Set Album, Year of “Neon Rain”"_s);
        QCOMPARE(mLines.last(), u"Finished. Songs processed: 2, modified: 1"_s);
    }

    void doneSongIsShownByItsNewSummary()
    {
        SongFileInfoCache cache(mFolder->filePath(u"cache"_s));
        mWorkList->setInfoCache(&cache);
        const auto neonRain = song(u"Neon Rain"_s);
        run({neonRain}, albumAndYear);
        QVERIFY(neonRain->infotag()->isLazy());
        QCOMPARE(neonRain->infotag()->album(), u"Paper Moons"_s);
        QVERIFY(cache.isDirty());
        mWorkList.reset();
    }

    void songThatNothingCanBeFoundForIsSkipped()
    {
        run({song(u"Neon Rain"_s)}, wanting(AssetLyrics));
        QCOMPARE(mOutcomes.at(0).missing, Assets(AssetLyrics));
        QVERIFY(!mOutcomes[0].changed && !mOutcomes[0].failed && mServer->requests().isEmpty());
        QCOMPARE(mLines.size(), 1); // that it finished
    }

    void songThatCannotBeGatheredFails()
    {
        for (const bool isLocked : {true, false}) { // or gone
            init();
            auto bad = song(u"bad"_s);
            const auto good = song(u"Neon Rain"_s);
            const QString file = bad->path();
            QVERIFY(QFile::setPermissions(mFolder->path(), QFile::Permissions(0x7777)));
            QVERIFY(QFile::setPermissions(file, QFile::ReadOwner | QFile::ReadOther));
            if (isLocked)
                bad = withoutRights([&] { return SongFile::songWithPath(file); });
            else
                QVERIFY(QFile::remove(file));
            run({bad, good});
            QCOMPARE(mOutcomes.size(), 2);
            QVERIFY(mOutcomes[0].failed && !mOutcomes[0].written && !mOutcomes[0].changed);
            QCOMPARE(mOutcomes[0].error,
                     qtTrId(isLocked ? "ErrorSongLocked" : "ErrorSongVanished"));
            QCOMPARE(bad->activityStatus(), isLocked ? SongStatus::Locked : SongStatus::Problem);
            QVERIFY(mOutcomes[1].written);
            QCOMPARE(mServer->paths(), {u"/Neon%20Rain"_s});
        }
    }

    void nothingReadyEndsAtOnce()
    {
        const auto pending = song(u"Neon Rain"_s);
        pending->setActivityStatus(SongStatus::Pending);
        run({pending});
        QCOMPARE(mLines, {u"Finished. Songs processed: 0, modified: 0"_s});
    }

    void failedWriteDoesNotEndTheRun()
    {
        mServer->serve(u"/Low%20Water"_s, {.body = "Harbour Lights;2007"});
        const auto lost = song(u"Neon Rain"_s);
        const auto next = song(u"Low Water"_s);
        connect(mWorkList.get(), &WorkList::songStarted, this,
                [&] { QFile::remove(path(u"Neon Rain.mp3"_s)); });
        run({lost, next});
        QVERIFY(mOutcomes.at(0).failed && !mOutcomes[0].written && mOutcomes[0].error);
        QCOMPARE(lost->activityStatus(), SongStatus::Problem);
        QVERIFY(mLines.at(1).startsWith(u"“Neon Rain” by The Lanterns cannot be changed: "_s));
        QVERIFY(mOutcomes.at(1).written);
    }

    void dryRunWritesAndLendsNothing()
    {
        for (const bool isDry : {true, false}) {
            const auto found = song(u"Neon Rain"_s);
            const auto borrower = song(u"Second Floor Window"_s, u"Paper Moons"_s);
            const QByteArray before = fileContents(found->path());
            setUp({found, borrower});
            run({found, borrower}, albumAndYear, isDry ? WriteSongs::No : WriteSongs::Yes);
            QCOMPARE(mOutcomes.at(0).changed, AssetAlbumName | AssetYear);
            QCOMPARE(mOutcomes[0].written, !isDry);
            QCOMPARE(fileContents(found->path()) == before, isDry);
            QCOMPARE(mWorkList->songsModified(), isDry ? 1 : 2);
            QCOMPARE(mOutcomes.at(1).sources.value(AssetYear), isDry ? QString() : u"library"_s);
            QCOMPARE(found->infotag()->album().has_value(), !isDry);
        }
    }

    void movedSongIsFollowed()
    {
        const auto moved = song(u"Neon Rain"_s);
        mWorkList->beginGathering({moved}, albumAndYear, standard);
        QVERIFY(QFile::rename(moved->path(), path(u"elsewhere.mp3"_s)));
        waitForEnd();
        QVERIFY(mOutcomes.at(0).written);
        QCOMPARE(moved->path(), path(u"elsewhere.mp3"_s));
    }

    void nextSongIsTheFirstThatTheTableShows()
    {
        const SongList songs{song(u"a"_s), song(u"b"_s), song(u"c"_s), song(u"d"_s)};
        SongList shown{songs[3], songs[1], songs[0]}; // c is filtered out
        mWorkList->setVisibleSong([&](int row) {
            return std::size_t(row) < shown.size() ? shown[std::size_t(row)] : nullptr;
        });
        QStringList order;
        connect(mWorkList.get(), &WorkList::songStarted, this, [&](const auto &started) {
            order << started->filename();
            shown = {songs[0], songs[1]}; // sorted again meanwhile
            mWorkList->visibleSongsChanged();
        });
        run(songs);
        QCOMPARE(order, (QStringList{u"d.mp3"_s, u"a.mp3"_s, u"b.mp3"_s, u"c.mp3"_s}));
    }

    void manySongsArePreparedFirst_data()
    {
        const Table<bool, int> row("isCancelled", "told");
        row("to the end", false, SongPreparation::mostAtOnce + 1);
        row("cancelled: the list is empty", true, 0);
    }
    void manySongsArePreparedFirst()
    {
        QFETCH(bool, isCancelled);
        SongList songs;
        for (int i = 0; i <= SongPreparation::mostAtOnce; ++i)
            songs.push_back(song(QString::number(i)));
        mWorkList->beginGathering(songs, wanting(AssetLyrics), standard);
        QVERIFY(mWorkList->preparation().isPreparing());
        if (isCancelled)
            mWorkList->preparation().cancel();
        waitForEnd();
        QTEST(int(mOutcomes.size()), "told");
        QCOMPARE(songs.back()->hasAlias(), !isCancelled);
        QCOMPARE(songs.back()->activityStatus(), SongStatus::Ready);
    }

    void songsAreAddedToTheRun()
    {
        const auto first = song(u"First"_s);
        const auto second = song(u"Second"_s);
        const auto third = song(u"Neon Rain"_s);
        connect(mWorkList.get(), &WorkList::songStarted, this, [&](const auto &started) {
            if (started == first) // with songs that are in the run already
                mWorkList->beginGathering({first, second, third}, albumAndYear, standard,
                                          WriteSongs::Yes);
        });
        double most = 0;
        connect(&mWorkList->overallProgress(), &Progress::changed, this,
                [&] { most = mWorkList->overallProgress().maximum(); });
        run({first, second}, albumAndYear, WriteSongs::No);
        QCOMPARE(mOutcomes.size(), 3);
        QCOMPARE(most, 6.0); // two songs and one, raised by the three that were selected
        QCOMPARE(mOutcomes[2].song, third);
        QVERIFY(!mOutcomes[2].written); // the run stays a dry one
        QCOMPARE(mLines.last(), u"Finished. Songs processed: 3, modified: 1"_s);
    }

    void cancelLeavesTheSongInHandAsItIs()
    {
        const auto inHand = song(u"Neon Rain"_s);
        const auto waiting = song(u"Low Water"_s);
        const QByteArray before = fileContents(inHand->path());
        mServer->hold();
        connect(mWorkList.get(), &WorkList::songStarted, mWorkList.get(), &WorkList::stopGathering);
        run({inHand, waiting});
        QCOMPARE(mEnds, {true});
        QVERIFY(mOutcomes.isEmpty());
        QCOMPARE(fileContents(inHand->path()), before);
        QCOMPARE(inHand->activityStatus(), SongStatus::Ready);
        QCOMPARE(waiting->activityStatus(), SongStatus::Ready);
        QCOMPARE(mLines, {u"Gathering was cancelled"_s});
    }

    void taskThatDoesNotEndIsGivenUpOn()
    {
        mContext->definitions = testDefinitions({{u"hangs"_s, true}});
        mWorkList->setCancelTimeout(std::chrono::milliseconds(50));
        connect(mWorkList.get(), &WorkList::songStarted, mWorkList.get(), &WorkList::stopGathering);
        QTest::ignoreMessage(QtWarningMsg, "Gave up [mCurrentInfoTask cancel]!");
        const auto inHand = song(u"Neon Rain"_s);
        run({inHand, song(u"Low Water"_s)});
        QCOMPARE(mEnds, {true});
        QVERIFY(mOutcomes.isEmpty());
        QCOMPARE(inHand->activityStatus(), SongStatus::Ready);
    }

private:
    [[nodiscard]] std::shared_ptr<SongFile> song(const QString &title, const QString &album = {})
    {
        const QString file = path(title + u".mp3"_s);
        writtenSong(file, {.title = title, .artist = u"The Lanterns"_s, .album = album});
        return SongFile::songWithPath(file, {.dialect = standard.dialect});
    }

    [[nodiscard]] QString path(const QString &name) const { return mFolder->filePath(name); }
    void setUp(const SongList &library)
    {
        mOutcomes.clear();
        mLines.clear();
        mEnds.clear();
        mWorkList.reset();
        mLibrary = std::make_unique<LibraryLending>(library);
        mContext.reset(new GatherContext{
            *mQueue, mCatalog, testDefinitions({{u"query"_s, mServer->url(u"/"_s).toString()}}),
            *mLibrary});
        mWorkList = std::make_unique<WorkList>(*mContext, mItunes, mLog);
        connect(mWorkList.get(), &WorkList::songFinished, this,
                [this](const SongOutcome &outcome) { mOutcomes << outcome; });
        connect(mWorkList.get(), &WorkList::runFinished, this,
                [this](bool cancelled) { mEnds << cancelled; });
    }

    void run(const SongList &songs, const GatheringOptions &options = albumAndYear,
             WriteSongs write = WriteSongs::Yes)
    {
        mWorkList->beginGathering(songs, options, standard, write);
        QVERIFY(mOutcomes.isEmpty());
        waitForEnd();
    }

    void waitForEnd()
    {
        QTRY_COMPARE_WITH_TIMEOUT(mEnds.size(), 1, 60000);
        QVERIFY(!mWorkList->isRunning());
        QCOMPARE(mWorkList->songsRemaining(), 0);
        QVERIFY(mWorkList->statusLine().isEmpty());
    }

    std::unique_ptr<QTemporaryDir> mFolder;
    std::unique_ptr<HttpServer> mServer;
    std::unique_ptr<HVHTTPQueue> mQueue;
    std::unique_ptr<LibraryLending> mLibrary;
    std::unique_ptr<GatherContext> mContext;
    std::unique_ptr<WorkList> mWorkList;
    SourceCatalog mCatalog = testSources();
    iTunesInterface mItunes;
    UserLog mLog;
    QList<SongOutcome> mOutcomes;
    QStringList mLines;
    QList<bool> mEnds; ///< of runs: whether they were cancelled
};

QTEST_GUILESS_MAIN(TestWorkList)
#include "tst_worklist.moc"
