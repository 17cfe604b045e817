#include "base/folders.h"
#include "base/texts.h"
#include "support/songscene.h"

#include <QFileInfo>
#include <QMap>
#include <QRandomGenerator>
#include <QTest>

#include <sys/syscall.h>

// What a disk holds after a power failure: what was synced, and of all that was written since any
// sectors, in any order. Names of files come and go with the sync of their folder.

using namespace Qt::StringLiterals;

namespace {
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
} // namespace

class PowerFailureTest : public QObject {
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
        checkEachCall([&](const Scene &scene) { return scene.isOld() || scene.isNew(shape); },
                      [&](const Scene &scene, Disturbance disturbance, const Observer &observer) {
                          return write(scene, shape, disturbance, observer);
                      });
    }

    void leavesOneOfManyWritesWithAKeptJournal() { checkEachCall(isAsAfterAWrite, writeThrice); }

private:
    /// Has the power fail after each call of a writing process.
    template<typename IsWhole, typename Write>
    void checkEachCall(IsWhole isWhole, Write writeSong)
    {
        const Quiet quiet;
        int restored = 0;
        TracedRun run;
        for (int at = 0; at <= run.calls; ++at) {
            const Scene scene;
            Disk disk(scene);
            run = writeSong(scene, {.kind = Disturbance::Kind::KillAfter, .at = at},
                            [&](const TracedCall &call) { disk.watch(call); });
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
};

QTEST_GUILESS_MAIN(PowerFailureTest)
#include "tst_powerfailure.moc"
