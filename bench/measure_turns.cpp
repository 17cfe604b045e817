// What the window does with 100,000 songs, and how long the longest turn of its event loop was
// meanwhile:
//
//     measure_turns make FOLDER TIMES    adds the demo's songs to the folder, so many times
//     measure_turns run FOLDER CACHE     a row for each thing that is done

#include "base/texts.h"
#include "demo/samplesites.h"
#include "demo/samplesongs.h"
#include "gui/mainwindow.h"
#include "gui/songtable.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QThread>

#include <cstdio>
#include <malloc.h>

namespace {

using namespace std::chrono_literals;

constexpr int millionth = 1'000'000;

/// Of this thread, in nanoseconds: other programs that take the processor do not count.
qint64 processorTime()
{
    timespec time = {};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return qint64(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

/// Measures the turns: from the first event of one until the loop waits for the next.
class TimedApplication : public QApplication {
public:
    TimedApplication(int &argc, char **argv)
        : QApplication(argc, argv)
    {
        connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
                &TimedApplication::endTurn);
    }

    bool notify(QObject *receiver, QEvent *event) override
    {
        if (!mIsInTurn && QThread::currentThread() == thread()) {
            mIsInTurn = true;
            mTime.start();
            mBefore = processorTime();
        }
        return QApplication::notify(receiver, event);
    }

    void endTurn()
    {
        if (!std::exchange(mIsInTurn, false))
            return;
        longest = std::max(longest, mTime.nsecsElapsed());
        busiest = std::max(busiest, processorTime() - mBefore);
        ++turns;
    }

    void startAnew() { longest = busiest = turns = 0; }

    qint64 longest = 0; ///< nanoseconds
    qint64 busiest = 0; ///< nanoseconds of the processor
    qint64 turns = 0;

private:
    QElapsedTimer mTime;
    qint64 mBefore = 0;
    bool mIsInTurn = false;
};

double residentMB()
{
    ::malloc_trim(0);
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toDouble() * 4096 / 1e6;
}

/// The sample sites on a thread of their own, as if somebody else served them.
class SitesElsewhere {
public:
    SitesElsewhere()
    {
        mObject.moveToThread(&mThread);
        mThread.start();
        QMetaObject::invokeMethod(
            &mObject,
            [this] {
                mSites = std::make_unique<SampleSites>();
                if (!mSites->listen())
                    qFatal("no port");
            },
            Qt::BlockingQueuedConnection);
    }
    ~SitesElsewhere()
    {
        QMetaObject::invokeMethod(
            &mObject, [this] { mSites.reset(); }, Qt::BlockingQueuedConnection);
        mThread.quit();
        mThread.wait();
    }

    [[nodiscard]] const SampleSites &sites() const { return *mSites; }

private:
    QThread mThread;
    QObject mObject;
    std::unique_ptr<SampleSites> mSites;
};

class Run {
public:
    Run(TimedApplication &application, const QString &folder, const QString &cache);

    int measure();

private:
    using Condition = std::function<bool()>;

    void during(const char *what, const std::function<void()> &act, const Condition &isOver,
                std::chrono::milliseconds longest = 10min);
    void rest(std::chrono::milliseconds time);
    void load();
    void sortAndSearch();
    void select();
    void gather();
    void logLines();
    void edit();
    void reportMemory(const char *what);
    [[nodiscard]] Condition isSettled();

    TimedApplication &mApplication;
    QString mFolder;
    QTemporaryDir mSettings;
    SitesElsewhere mSites;
    Engine mEngine;
    std::unique_ptr<MainController> mController;
    std::unique_ptr<MainWindow> mWindow;
    SongTable *mTable = nullptr;
    double mBefore = 0;
};

Run::Run(TimedApplication &application, const QString &folder, const QString &cache)
    : mApplication(application)
    , mFolder(folder)
    , mEngine((::qputenv("XDG_CACHE_HOME", cache.toLocal8Bit()), Engine::Pages::OnDisk),
              mSettings.filePath(QStringLiteral("settings")))
{
    mEngine.definitions.useDefinitions(
        mSites.sites().definitions(mEngine.definitions.liveResources()));
    mEngine.start(Engine::Definitions::Fixed);
    mController = std::make_unique<MainController>(mEngine);
    mWindow = std::make_unique<MainWindow>(*mController);
    mWindow->setUp();
    mTable = mWindow->findChild<SongTable *>();
    mWindow->show();
}

/// Turns of a quarter of a second after it count as well: what it changed is painted then.
void Run::during(const char *what, const std::function<void()> &act, const Condition &isOver,
                 std::chrono::milliseconds longest)
{
    mApplication.endTurn();
    mApplication.startAnew();
    QElapsedTimer time;
    time.start();
    QMetaObject::invokeMethod(mWindow.get(), act, Qt::QueuedConnection);
    QTimer ticks;
    ticks.start(2ms);
    do
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    while (!isOver() && !time.hasExpired(longest.count()));
    const double took = static_cast<double>(time.elapsed());
    rest(250ms);
    std::printf("| %-44s | %7.1f ms | %7.1f ms | %8.0f ms, %lld turns |\n", what,
                static_cast<double>(mApplication.longest) / millionth,
                static_cast<double>(mApplication.busiest) / millionth, took, mApplication.turns);
    std::fflush(stdout);
}

void Run::rest(std::chrono::milliseconds time)
{
    QElapsedTimer elapsed;
    elapsed.start();
    QTimer ticks;
    ticks.start(2ms);
    while (!elapsed.hasExpired(time.count()))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    mApplication.endTurn();
}

Run::Condition Run::isSettled()
{
    return [this] { return !mController->shownSongs().isBusy(); };
}

void Run::load()
{
    const auto isLoaded = [this] {
        return !mController->songs().isLoading() && !mController->songs().allSongs().empty();
    };
    during(
        "loading", [this] { mController->setSongLibraryFolder(mFolder); }, isLoaded);
}

void Run::sortAndSearch()
{
    for (const auto &[what, column] :
         {std::pair{"sorting by title", SongColumn::Title},
          std::pair{"sorting by artist", SongColumn::Artist},
          std::pair{"sorting by artist once more", SongColumn::Artist}})
        during(
            what,
            [this, column = column] {
                mController->shownSongs().sortBy({column, Qt::AscendingOrder});
            },
            isSettled());
    auto *field = mWindow->findChild<QLineEdit *>(QStringLiteral("searchField"));
    for (const auto &[what, text] :
         {std::pair{"searching for r", "r"}, std::pair{"searching for river", "river"},
          std::pair{"searching for nothing", ""}})
        during(
            what, [field, text = text] { field->setText(QLatin1String(text)); }, isSettled());
    during(
        "scrolling",
        [this] { mTable->verticalScrollBar()->setValue(mTable->verticalScrollBar()->maximum()); },
        isSettled());
}

void Run::select()
{
    during(
        "selecting all", [this] { mTable->selectAll(); }, isSettled());
    during(
        "sorting them",
        [this] {
            mController->shownSongs().sortBy({SongColumn::Year, Qt::AscendingOrder});
        },
        isSettled());
    during(
        "selecting one", [this] { mTable->selectRow(mController->shownSongs().size() / 2); },
        isSettled());
}

/// Of all songs, with lines in the log and the user at work meanwhile.
void Run::gather()
{
    GatheringOptions options = mController->prefs().gatheringOptions();
    options.parallelSearch = true;
    mController->prefs().setGatheringOptions(options);
    const auto songs = static_cast<double>(mController->songs().allSongs().size());
    during(
        "beginning a run over all",
        [this] {
            mTable->selectAll();
            mController->beginGathering();
        },
        [this, songs] { return mController->workList().overallProgress().maximum() > songs / 2; });
    during(
        "gathering", [] {}, [] { return false; }, 10s);
    logLines();
    during(
        "selecting one meanwhile", [this] { mTable->selectRow(3); }, isSettled(), 1s);
    during(
        "sorting by what songs are doing",
        [this] {
            mController->shownSongs().sortBy({SongColumn::Activity, Qt::AscendingOrder});
        },
        [] { return false; }, 5s);
    during(
        "selecting all meanwhile", [this] { mTable->selectAll(); }, [] { return false; }, 2s);
    during(
        "stopping it", [this] { mController->stopGathering(); },
        [this] { return !mController->workList().isRunning(); });
}

/// 100,000 lines, a thousand at a time.
void Run::logLines()
{
    int lines = 0;
    QTimer more;
    QObject::connect(&more, &QTimer::timeout, mWindow.get(), [this, &lines] {
        for (int i = 0; i < 1000; ++i, ++lines)
            mEngine.log.addLog(QStringLiteral("-- Set year, genre of Harbour Light %1").arg(lines),
                               LogColor::Change);
    });
    during(
        "gathering, 100,000 lines of log", [&more] { more.start(20ms); },
        [&] {
            if (lines >= 100'000)
                more.stop();
            return !more.isActive() && lines > 0;
        });
    during(
        "gathering, with these lines", [] {}, [] { return false; }, 5s);
}

void Run::edit()
{
    const auto isDone = [this] { return !mController->editing().isBusy(); };
    TagValues values;
    values.texts[TagText::Genres] = QStringLiteral("Folk");
    during(
        "selecting all", [this] { mTable->selectAll(); }, isSettled());
    during(
        "changing the genre of all",
        [this, values] {
            mController->change(TagChange::sameForAll(QStringLiteral("genre"),
                                                      mController->selectedSongs(), values));
        },
        isDone);
    during(
        "undoing it", [this] { mController->undo(); }, isDone);
    during(
        "looking at all anew",
        [this] {
            QSet<QString> paths;
            for (const auto &song : mController->songs().allSongs())
                paths << song->path();
            mController->refreshSongs(paths);
        },
        isSettled());
}

void Run::reportMemory(const char *what)
{
    const auto songs = static_cast<double>(mController->songs().allSongs().size());
    std::printf("| %-44s | %.0f bytes a song |\n", what,
                (residentMB() - mBefore) * 1e6 / std::max(songs, 1.0));
}

int Run::measure()
{
    rest(500ms);
    mBefore = residentMB();
    load();
    reportMemory("memory, loaded");
    load();
    reportMemory("memory, loaded once more");
    sortAndSearch();
    reportMemory("memory, sorted and searched");
    select();
    gather();
    edit();
    load();
    return 0;
}

/// The demo's songs, so many times: the sample sites know them.
int make(const QString &folder, int times)
{
    for (int number = 0; number < times; ++number) {
        const QString songs = QStringLiteral("%1/demo %2").arg(folder).arg(number);
        const QString error =
            QDir().mkpath(songs) ? makeSampleSongs(songs) : QStringLiteral("cannot be made");
        if (!error.isEmpty())
            return std::fprintf(stderr, "%s\n", qUtf8Printable(error)), 1;
    }
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    TimedApplication application(argc, argv);
    installTexts(TextLanguage::English);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("run") && argc == 4)
        return Run(application, arguments[2], arguments[3]).measure();
    if (arguments.value(1) == QLatin1String("make") && argc == 4)
        return make(arguments[2], arguments[3].toInt());
    std::fputs("measure_turns make FOLDER TIMES | run FOLDER CACHE\n", stderr);
    return 2;
}
