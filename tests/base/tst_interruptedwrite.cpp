#include "base/inplacefile.h"
#include "base/texts.h"
#include "support/songscene.h"
#include "support/tempfiles.h"

#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include <cerrno>
#include <sys/syscall.h>

// Every write is done in a process of its own that is killed, or whose calls fail, at each of the
// system calls that change a file, one after the other. Whatever happens, the song must hold
// its old bytes or its new ones afterwards.

namespace {
using Kind = Disturbance::Kind;

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
    QTest::newRow("written anew") << noise(songSize, 9) << false << 1;
    QTest::newRow("longer than old and new") << grown.expected + "end" << false << 1;
    QTest::newRow("shorter than old and new") << oldBytes().chopped(1) << false << 1;
    QTest::newRow("another file in its place") << noise(songSize, 9) << true << 1;
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
    const auto result = write(scene, grown, {}, [&](const TracedCall &call) {
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
