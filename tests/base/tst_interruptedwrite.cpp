#include "base/descriptor.h"
#include "base/folders.h"
#include "base/texts.h"
#include "base/writejournal.h"
#include "support/songscene.h"
#include "support/table.h"

#include <QMap>
#include <QRandomGenerator>
#include <QRegularExpression>

#include <cerrno>
#include <fcntl.h>
#include <sys/syscall.h>

// Every write is done in a process of its own that is killed, or whose calls fail, at each of the
// system calls that change a file, one after the other. Whatever happens, the song must hold
// its old bytes or its new ones afterwards.

using namespace Qt::StringLiterals;

namespace {
using Kind = Disturbance::Kind;

struct {
    const char *name;
    Disturbance disturbance;
} const disturbances[] = {
    {"killed before", {.kind = Kind::KillBefore}},
    {"killed halfway", {.kind = Kind::KillHalfway}},
    {"killed after", {.kind = Kind::KillAfter}},
    {"half done", {.kind = Kind::Halve}},
    {"disk full once", {.kind = Kind::Fail, .error = ENOSPC}},
    {"disk fails once", {.kind = Kind::Fail, .error = EIO}},
    {"signal comes between", {.kind = Kind::Fail, .error = EINTR}},
    {"disk full for good", {.kind = Kind::FailFromThere, .error = ENOSPC}},
    {"disk fails for good", {.kind = Kind::FailFromThere, .error = EIO}},
};

const Shape &grown = shapes()[1];

/// Disturbs runs at each of their system calls, one after the other, until a call is not reached.
template<typename Check>
void forEachDisturbance(Check check)
{
    for (auto [name, disturbance] : disturbances) {
        TracedRun run;
        for (; disturbance.at <= run.calls; ++disturbance.at) {
            const auto what = name + QByteArray(", call ") + QByteArray::number(disturbance.at);
            check(disturbance, what.constData(), run);
            if (QTest::currentTestFailed())
                return;
        }
        QVERIFY(run.calls > 3);
    }
}

int recover()
{
    recoverInterruptedWrites();
    return 0;
}

constexpr qsizetype sectorSize = 512;

/// Any sectors of the synced and of the written bytes, and either size.
QByteArray mixed(const QByteArray &synced, const QByteArray &written, QRandomGenerator &random)
{
    QByteArray bytes(std::max(synced.size(), written.size()), '\0');
    for (qsizetype offset = 0; offset < bytes.size(); offset += sectorSize) {
        const QByteArray sector = (random.bounded(2) ? synced : written).mid(offset, sectorSize);
        std::copy(sector.begin(), sector.end(), bytes.begin() + offset);
    }
    bytes.truncate(random.bounded(2) ? synced.size() : written.size());
    return bytes;
}

/// Watches what a writing process has synced, up to the moment when the power fails.
class Disk {
public:
    explicit Disk(const Scene &scene)
        : mSong(scene.path())
    {
        mSynced[mSong] = oldBytes();
    }

    void watch(const TracedCall &call)
    {
        if (call.number != SYS_fsync && call.number != SYS_fdatasync)
            return;
        const QString path = QFile::symLinkTarget(u"/proc/%1/fd/%2"_s.arg(call.pid).arg(call.fd));
        if (QFileInfo(path).isDir())
            mIsNameSynced = path == folder();
        else
            mSynced[path] = fileContents(path);
    }

    void failPower()
    {
        for (const QString &path : leftOvers())
            if (!mSynced.contains(path))
                mSynced[path] = {};
        for (auto it = mSynced.cbegin(); it != mSynced.cend(); ++it)
            if (QFile::exists(it.key()))
                mWritten[it.key()] = fileContents(it.key());
    }

    /// What may be found when the power is back.
    void start(quint32 seed) const
    {
        QRandomGenerator random(seed);
        for (auto it = mSynced.cbegin(); it != mSynced.cend(); ++it) {
            const bool mayBeMissing =
                it.key() != mSong && (!mWritten.contains(it.key()) || !mIsNameSynced);
            if (mayBeMissing && random.bounded(2))
                QFile::remove(it.key());
            else
                writeFile(it.key(),
                          mixed(it.value(), mWritten.value(it.key(), it.value()), random));
        }
    }

private:
    static QString folder() { return stateFolder() + u"/journal"_s; }

    QString mSong;
    QMap<QString, QByteArray> mSynced;
    QMap<QString, QByteArray> mWritten;
    bool mIsNameSynced = false;
};
/// Kills writes of the song until one leaves it neither old nor new.
void leaveAMix(const Scene &scene, const Shape &shape = grown)
{
    const Quiet quiet;
    for (int at = 0; scene.isOld(); ++at) {
        recoverInterruptedWrites(); // drops the journal of the write before
        write(scene, shape, {.kind = Kind::KillHalfway, .at = at});
    }
}

/// After a start of the program the song is whole and nothing is left over.
void checkSettled(const Scene &scene, const Shape &shape, const char *what)
{
    recoverInterruptedWrites();
    QVERIFY2(scene.isOld() || scene.isNew(shape), what);
    QVERIFY2(leftOvers().isEmpty(), what);
}
} // namespace

class InterruptedWriteTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        installTexts();
        if (!canTrace())
            QSKIP("processes cannot be traced here");
    }

    void leavesOldOrNew_data() { addShapes(); }

    void leavesOldOrNew()
    {
        QFETCH(Shape, shape);
        const Quiet quiet;
        forEachDisturbance([&](Disturbance disturbance, const char *what, TracedRun &run) {
            const Scene scene;
            run = write(scene, shape, disturbance);
            if (!run.wasKilled) {
                const bool isUndisturbed = disturbance.at >= run.calls;
                QVERIFY2(run.status == Written || (run.status == Failed && !isUndisturbed), what);
                if (run.status == Written)
                    QVERIFY2(scene.isNew(shape), what);
                else if (disturbance.kind != Kind::FailFromThere)
                    QVERIFY2(scene.isOld(), what);
            }
            checkSettled(scene, shape, what);
            if (run.wasKilled && scene.isOld())
                QVERIFY2(hasOldTime(scene.path()), what);
        });
    }

    void leavesOneOfManyWritesWithAKeptJournal()
    {
        const Quiet quiet;
        forEachDisturbance([&](Disturbance disturbance, const char *what, TracedRun &run) {
            const Scene scene;
            run = writeThrice(scene, disturbance);
            const bool wasMixed = !isAsAfterAWrite(scene);
            recoverInterruptedWrites();
            QVERIFY2(isAsAfterAWrite(scene), what);
            QVERIFY2(run.wasKilled || disturbance.kind == Kind::FailFromThere || !wasMixed, what);
            QVERIFY2(leftOvers().isEmpty(), what);
        });
    }

    /// The power fails after each call of a writing process: the disk holds what was synced, and of
    /// all that was written since any sectors, in any order. Names come with the sync of their
    /// folder.
    void powerFailureLeavesOldOrNew_data()
    {
        const Table<std::optional<Shape>> row("shape"); // none: three small writes
        for (const Shape &shape : shapes())
            row(shape.name, shape);
        row("many writes with a kept journal", {});
    }
    void powerFailureLeavesOldOrNew()
    {
        QFETCH(std::optional<Shape>, shape);
        const auto isWhole = [&](const Scene &scene) {
            return shape ? scene.isOld() || scene.isNew(*shape) : isAsAfterAWrite(scene);
        };
        const Quiet quiet;
        int restored = 0;
        TracedRun run;
        for (int at = 0; at <= run.calls; ++at) {
            const Scene scene;
            Disk disk(scene);
            const Disturbance killed{.kind = Kind::KillAfter, .at = at};
            const auto watch = [&](const TracedCall &call) { disk.watch(call); };
            run = shape ? write(scene, *shape, killed, watch) : writeThrice(scene, killed, watch);
            disk.failPower();
            for (quint32 seed = 0; seed < 16; ++seed) {
                disk.start(seed);
                restored += isWhole(scene) ? 0 : 1;
                recoverInterruptedWrites();
                const auto what = u"call %1, seed %2"_s.arg(at).arg(seed).toLatin1();
                QVERIFY2(isWhole(scene), what.constData());
                QCOMPARE(leftOvers(), QStringList());
            }
        }
        QVERIFY(restored > 3);
    }

    /// What the kept file tells of a write that is over must not count against later ones.
    void forgetsWritesThatAreOver()
    {
        const Scene scene;
        const Parts parts = {{noise(9'000, 4)}, {.offset = 9'000, .length = songSize - 9'000}};
        runTraced(
            [&] {
                // Never removed, as by a program that is killed between two songs.
                replace(scene.path(), parts, KeepTime::No, new KeptJournal); // NOLINT
                return 0;
            },
            {});
        QCOMPARE(leftOvers().size(), 1);
        const QByteArray edited =
            oldBytes().first(4'000) + bytesFrom(parts, oldBytes()).sliced(4'000);
        writeFile(scene.path(), edited);
        const Quiet quiet;
        recoverInterruptedWrites();
        QVERIFY(fileContents(scene.path()) == edited);
        QVERIFY(leftOvers().isEmpty());
    }

    void recoveryIsInterruptedItself_data()
    {
        const Table<Shape, bool> row("shape", "isWrittenAgain");
        for (const Shape &shape : shapes())
            row(shape.name, shape, false);
        row("by the next write", grown, true);
    }

    void recoveryIsInterruptedItself()
    {
        QFETCH(Shape, shape);
        QFETCH(bool, isWrittenAgain);
        const Scene scene;
        leaveAMix(scene, shape);
        const QString journal = leftOvers().constFirst();
        const QByteArray mix = fileContents(scene.path());
        const QByteArray saved = fileContents(journal);
        const Quiet quiet;
        forEachDisturbance([&](Disturbance disturbance, const char *what, TracedRun &run) {
            writeFile(scene.path(), mix);
            writeFile(journal, saved);
            run =
                isWrittenAgain ? write(scene, shape, disturbance) : runTraced(recover, disturbance);
            QVERIFY2(!isWrittenAgain || run.status != Written || scene.isNew(shape), what);
            checkSettled(scene, shape, what);
            if (run.wasKilled && !(isWrittenAgain && scene.isNew(shape)))
                QVERIFY2(scene.isOld() && hasOldTime(scene.path()), what);
        });
    }

    void leavesAForeignSongAlone_data()
    {
        const Table<QByteArray, bool, int> row("theirs", "isNewFile", "kept");
        QByteArray edited = grown.expected;
        edited[50'000] = static_cast<char>(~edited[50'000] ^ oldBytes()[50'000] ^ edited[49'999]);
        row("one byte edited", edited, false, 1);
        row("longer than old and new", grown.expected + "end", false, 1);
        row("shorter than old and new", oldBytes().chopped(1), false, 1);
        row("another file in its place", noise(songSize, 9), true, 1);
        row("the old file put back from a copy", oldBytes(), true, 0);
    }

    void leavesAForeignSongAlone()
    {
        QFETCH(QByteArray, theirs);
        QFETCH(bool, isNewFile);
        QFETCH(int, kept);
        const Scene scene;
        leaveAMix(scene);
        if (isNewFile)
            QVERIFY(QFile::rename(scene.path(), scene.path() + u"~"_s));
        writeFile(scene.path(), theirs);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"song\\.mp3"_s));

        recoverInterruptedWrites();

        QVERIFY(fileContents(scene.path()) == theirs);
        QCOMPARE(leftOvers().size(), kept);
        recoverInterruptedWrites(); // what was put aside is not looked at again
        QCOMPARE(leftOvers().size(), kept);
    }

    void waitsForASongThatIsAway()
    {
        const Scene scene;
        leaveAMix(scene);
        const QString away = scene.path() + u".away"_s;
        QVERIFY(QFile::rename(scene.path(), away));
        const Quiet quiet;
        recoverInterruptedWrites();
        QCOMPARE(leftOvers().size(), 1);

        // Copied back: the inode is another one, but the bytes are those of the write.
        QVERIFY(QFile::copy(away, scene.path()));
        recoverInterruptedWrites();
        QVERIFY(scene.isOld());
        QCOMPARE(leftOvers(), QStringList());
    }

    void leavesTheJournalOfALivingWriter()
    {
        const Scene scene;
        int seen = 0;
        int journalsMade = 0;
        const Quiet quiet;
        const auto result = write(scene, grown, {}, [&](const TracedCall &call) {
            // A journal may be taken for a dead one until it is locked;
            // the writer makes another one then, but not for ever.
            journalsMade += call.number == SYS_openat ? 1 : 0;
            if (call.number == SYS_openat && journalsMade > 1)
                return;
            recoverInterruptedWrites();
            seen += static_cast<int>(leftOvers().size());
        });
        QCOMPARE(result.status, Written);
        QCOMPARE(journalsMade, 2);
        QVERIFY(seen > 5);
        QVERIFY(scene.isNew(grown));
    }

    void putsASongRightBeforeItIsWritten()
    {
        const Scene scene;
        leaveAMix(scene);
        const QByteArray mix = fileContents(scene.path());
        const Quiet quiet;
        {
            const QByteArray journal = QFile::encodeName(leftOvers().constFirst());
            const Descriptor busyWithIt(::open(journal.constData(), O_RDWR | O_CLOEXEC));
            QVERIFY(lockFile(busyWithIt.get(), std::chrono::milliseconds(0)));
            QCOMPARE(InPlaceFile::open(scene.path()).error, qtTrId("ReasonFileBusy"));
            QVERIFY(fileContents(scene.path()) == mix);
        }
        const auto opened = InPlaceFile::open(scene.path());
        QVERIFY2(opened.file, qPrintable(opened.error));
        QVERIFY(scene.isOld());
        QCOMPARE(leftOvers(), QStringList());
    }
};

QTEST_GUILESS_MAIN(InterruptedWriteTest)
#include "tst_interruptedwrite.moc"
