#include "base/folders.h"
#include "base/inplacefile.h"
#include "base/texts.h"
#include "support/tempfiles.h"
#include "support/tracedprocess.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>

// Every write is done in a process of its own that is killed, or whose calls fail, at each of the
// system calls that change a file, one after the other. Whatever happens, the song must hold
// its old bytes or its new ones afterwards.

namespace {
using Kind = Disturbance::Kind;

constexpr int songSize = 100'000;
constexpr timespec longAgo[] = {{1'000'000'000, 5}, {1'30'000'000, 123'456'789}};

QByteArray pattern(int size, quint32 state)
{
    QByteArray bytes(size, '\0');
    for (char &byte : bytes)
        byte = static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
    return bytes;
}

const QByteArray &oldBytes()
{
    static const QByteArray bytes = pattern(songSize, 1);
    return bytes;
}

/// What a write makes of the song.
struct Shape {
    const char *name;
    FileContents contents;
    QByteArray expected;
};

std::vector<Shape> shapes()
{
    const QByteArray tag = pattern(10'000, 2);
    const QByteArray end = pattern(128, 3);
    std::vector<Shape> all(5);
    all[0].name = "head and end of the same size";
    all[0].contents.append(tag);
    all[0].contents.keep(tag.size(), songSize - tag.size() - end.size());
    all[0].contents.append(end);
    all[0].expected = tag + oldBytes().mid(tag.size(), songSize - tag.size() - end.size()) + end;
    all[1].name = "grown";
    all[1].contents.append(tag);
    all[1].contents.keep(500, songSize - 500);
    all[1].expected = tag + oldBytes().mid(500);
    all[2].name = "shrunk";
    all[2].contents.append(tag);
    all[2].contents.keep(30'000, songSize - 30'000);
    all[2].expected = tag + oldBytes().mid(30'000);
    all[3].name = "ranges change places";
    all[3].contents.keep(70'000, 30'000);
    all[3].contents.keep(0, 70'000);
    all[3].expected = oldBytes().mid(70'000) + oldBytes().left(70'000);
    all[4].name = "end added";
    all[4].contents.keep(0, songSize);
    all[4].contents.append(end);
    all[4].expected = oldBytes() + end;
    return all;
}

/// A song and the state folder of the program that writes it, made afresh for each disturbance.
class Scene {
public:
    Scene()
    {
        writeFile(path(), oldBytes());
        ::utimensat(AT_FDCWD, QFile::encodeName(path()).constData(), longAgo, 0);
        qputenv("XDG_STATE_HOME", QFile::encodeName(mFolder.filePath(QStringLiteral("state"))));
    }

    [[nodiscard]] QString path() const { return mFolder.filePath(QStringLiteral("song.mp3")); }

    [[nodiscard]] bool isOld() const { return fileContents(path()) == oldBytes(); }

    [[nodiscard]] bool hasOldTime() const
    {
        struct stat found = {};
        ::stat(QFile::encodeName(path()).constData(), &found);
        return found.st_mtim.tv_sec == longAgo[1].tv_sec
            && found.st_mtim.tv_nsec == longAgo[1].tv_nsec;
    }

    [[nodiscard]] bool isNew(const Shape &shape) const
    {
        return fileContents(path()) == shape.expected;
    }

    /// Journals, and bytes that were put aside.
    [[nodiscard]] static QStringList leftOvers()
    {
        const QDir state(stateFolder());
        return QDir(state.filePath(QStringLiteral("journal"))).entryList(QDir::Files)
            + QDir(state.filePath(QStringLiteral("kept"))).entryList(QDir::Files);
    }

private:
    /// In memory where possible: there, thousands of syncs take no time.
    static QString folderTemplate()
    {
        const QString memory = QStringLiteral("/dev/shm");
        return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath())
            + QStringLiteral("/interruptedwrite-XXXXXX");
    }

    QTemporaryDir mFolder{folderTemplate()};
};

enum Result { Written, Failed, FailedWithoutReason, Unchanged };

int writeSong(const QString &path, const FileContents &contents)
{
    const auto opened = InPlaceFile::open(path);
    if (!opened.file)
        return opened.error.isEmpty() ? FailedWithoutReason : Failed;
    const auto outcome = opened.file->replaceContents(contents, KeepTime::No);
    if (outcome.kind == InPlaceFile::Outcome::Kind::Failed)
        return outcome.error.isEmpty() ? FailedWithoutReason : Failed;
    return outcome.kind == InPlaceFile::Outcome::Kind::Written ? Written : Unchanged;
}

TracedRun write(const Scene &scene, const Shape &shape, Disturbance disturbance)
{
    return runTraced([&] { return writeSong(scene.path(), shape.contents); }, disturbance);
}

TracedRun recover(Disturbance disturbance = {})
{
    return runTraced(
        [] {
            recoverInterruptedWrites();
            return 0;
        },
        disturbance);
}

QByteArray nameOf(const Shape &shape, const Disturbance &disturbance)
{
    return shape.name + QByteArray(", call ") + QByteArray::number(disturbance.at);
}

/// The first call after whose half the song is neither old nor new.
int callThatLeavesAMix(const Shape &shape)
{
    for (int at = 0;; ++at) {
        const Scene scene;
        write(scene, shape, {.kind = Kind::KillHalfway, .at = at});
        if (!scene.isOld())
            return at;
    }
}

/// Keeps what the program logs out of the test's report.
class Quiet {
public:
    Quiet()
        : mFormer(
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {}))
    {
    }
    Quiet(const Quiet &) = delete;
    Quiet &operator=(const Quiet &) = delete;
    ~Quiet() { qInstallMessageHandler(mFormer); }

private:
    QtMessageHandler mFormer;
};
} // namespace

Q_DECLARE_METATYPE(Disturbance)

class InterruptedWriteTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        installTexts();
        if (!canTrace())
            QSKIP("processes cannot be traced here");
    }

    void leavesOldOrNew_data() { addDisturbances(); }
    void leavesOldOrNew();
    void recoveryIsInterruptedItself_data() { addDisturbances(); }
    void recoveryIsInterruptedItself();
    void leavesAForeignSongAlone_data();
    void leavesAForeignSongAlone();
    void waitsForASongThatIsAway();
    void leavesTheJournalOfALivingWriter();
    void putsASongRightBeforeItIsWritten();

private:
    static void addDisturbances();
    static void checkSettled(const Scene &scene, const Shape &shape, const QByteArray &what);
};

void InterruptedWriteTest::addDisturbances()
{
    QTest::addColumn<Disturbance>("disturbance");
    QTest::newRow("killed before a call") << Disturbance{.kind = Kind::KillBefore};
    QTest::newRow("killed halfway") << Disturbance{.kind = Kind::KillHalfway};
    QTest::newRow("killed after a call") << Disturbance{.kind = Kind::KillAfter};
    QTest::newRow("call does half") << Disturbance{.kind = Kind::Halve};
    QTest::newRow("disk full once") << Disturbance{.kind = Kind::Fail, .error = ENOSPC};
    QTest::newRow("disk fails once") << Disturbance{.kind = Kind::Fail, .error = EIO};
    QTest::newRow("signal comes between") << Disturbance{.kind = Kind::Fail, .error = EINTR};
    QTest::newRow("disk full for good")
        << Disturbance{.kind = Kind::FailFromThere, .error = ENOSPC};
    QTest::newRow("disk fails for good") << Disturbance{.kind = Kind::FailFromThere, .error = EIO};
}

/// After a start of the program the song is whole and nothing is left over.
void InterruptedWriteTest::checkSettled(const Scene &scene, const Shape &shape,
                                        const QByteArray &what)
{
    QCOMPARE(recover().status, 0);
    QVERIFY2(scene.isOld() || scene.isNew(shape), what.constData());
    QVERIFY2(scene.leftOvers().isEmpty(), what.constData());
}

void InterruptedWriteTest::leavesOldOrNew()
{
    QFETCH(Disturbance, disturbance);
    const Quiet quiet;
    for (const Shape &shape : shapes()) {
        TracedRun run;
        for (disturbance.at = 0; disturbance.at <= run.calls; ++disturbance.at) {
            const Scene scene;
            const QByteArray what = nameOf(shape, disturbance);
            run = write(scene, shape, disturbance);
            if (!run.wasKilled) {
                QVERIFY2(run.status == Written || run.status == Failed, what.constData());
                if (run.status == Written)
                    QVERIFY2(scene.isNew(shape), what.constData());
                else if (disturbance.kind != Kind::FailFromThere)
                    QVERIFY2(scene.isOld(), what.constData());
            }
            checkSettled(scene, shape, what);
            if (run.wasKilled && scene.isOld())
                QVERIFY2(scene.hasOldTime(), what.constData());
            if (QTest::currentTestFailed())
                return;
        }
        QCOMPARE(run.status, Written); // the last one came to its end undisturbed
        QVERIFY(run.calls > 6);
    }
}

void InterruptedWriteTest::recoveryIsInterruptedItself()
{
    QFETCH(Disturbance, disturbance);
    const Quiet quiet;
    for (const Shape &shape : shapes()) {
        const int interruption = callThatLeavesAMix(shape);
        TracedRun run;
        for (disturbance.at = 0; disturbance.at <= run.calls; ++disturbance.at) {
            const Scene scene;
            write(scene, shape, {.kind = Kind::KillHalfway, .at = interruption});
            run = recover(disturbance);
            const QByteArray what = nameOf(shape, disturbance);
            checkSettled(scene, shape, what);
            if (run.wasKilled)
                QVERIFY2(scene.isOld() && scene.hasOldTime(), what.constData());
            if (QTest::currentTestFailed())
                return;
        }
        QVERIFY(run.calls > 3);
    }
}

void InterruptedWriteTest::leavesAForeignSongAlone_data()
{
    QTest::addColumn<QByteArray>("theirs");
    QTest::addColumn<bool>("isNewFile");
    QTest::addColumn<int>("kept");
    const Shape grown = shapes()[1];
    QByteArray edited = grown.expected;
    edited[50'000] = static_cast<char>(~edited[50'000] ^ oldBytes()[50'000] ^ edited[49'999]);
    QTest::newRow("one byte edited") << edited << false << 1;
    QTest::newRow("written anew") << pattern(songSize, 9) << false << 1;
    QTest::newRow("longer than old and new") << grown.expected + "end" << false << 1;
    QTest::newRow("shorter than old and new") << oldBytes().chopped(1) << false << 1;
    QTest::newRow("another file in its place") << pattern(songSize, 9) << true << 1;
    QTest::newRow("the old file put back from a copy") << oldBytes() << true << 0;
}

void InterruptedWriteTest::leavesAForeignSongAlone()
{
    QFETCH(QByteArray, theirs);
    QFETCH(bool, isNewFile);
    QFETCH(int, kept);
    const Shape grown = shapes()[1];
    const Scene scene;
    write(scene, grown, {.kind = Kind::KillHalfway, .at = callThatLeavesAMix(grown)});
    if (isNewFile)
        QVERIFY(QFile::rename(scene.path(), scene.path() + QStringLiteral("~")));
    writeFile(scene.path(), theirs);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("song\\.mp3")));

    recoverInterruptedWrites();

    QVERIFY(fileContents(scene.path()) == theirs);
    QCOMPARE(scene.leftOvers().size(), kept);
    recoverInterruptedWrites(); // what was put aside is not looked at again
    QCOMPARE(scene.leftOvers().size(), kept);
}

void InterruptedWriteTest::waitsForASongThatIsAway()
{
    const Shape grown = shapes()[1];
    const Scene scene;
    write(scene, grown, {.kind = Kind::KillHalfway, .at = callThatLeavesAMix(grown)});
    const QString away = scene.path() + QStringLiteral(".away");
    QVERIFY(QFile::rename(scene.path(), away));
    const Quiet quiet;
    recoverInterruptedWrites();
    QCOMPARE(scene.leftOvers().size(), 1);

    // Copied back: the inode is another one, but the bytes are those of the write.
    QVERIFY(QFile::copy(away, scene.path()));
    recoverInterruptedWrites();
    QVERIFY(scene.isOld());
    QCOMPARE(scene.leftOvers(), QStringList());
}

void InterruptedWriteTest::leavesTheJournalOfALivingWriter()
{
    const Shape grown = shapes()[1];
    const Scene scene;
    int seen = 0;
    int journalsMade = 0;
    const Quiet quiet;
    const auto result = runTraced([&] { return writeSong(scene.path(), grown.contents); }, {},
                                  [&](const TracedCall &call) {
                                      // A journal may be taken for a dead one until it is locked;
                                      // the writer makes another one then, but not for ever.
                                      journalsMade += call.number == SYS_openat ? 1 : 0;
                                      if (call.number == SYS_openat && journalsMade > 1)
                                          return;
                                      recoverInterruptedWrites();
                                      seen += static_cast<int>(scene.leftOvers().size());
                                  });
    QCOMPARE(result.status, Written);
    QCOMPARE(journalsMade, 2);
    QVERIFY(seen > 5);
    QVERIFY(scene.isNew(grown));
}

void InterruptedWriteTest::putsASongRightBeforeItIsWritten()
{
    const Shape grown = shapes()[1];
    const Scene scene;
    write(scene, grown, {.kind = Kind::KillHalfway, .at = callThatLeavesAMix(grown)});
    const Quiet quiet;
    const auto opened = InPlaceFile::open(scene.path());
    QCOMPARE(opened.file->size(), songSize);
    QVERIFY(scene.isOld());
}

QTEST_GUILESS_MAIN(InterruptedWriteTest)
#include "tst_interruptedwrite.moc"
