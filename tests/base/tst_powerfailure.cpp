#include "base/folders.h"
#include "base/texts.h"
#include "support/songscene.h"
#include "support/tempfiles.h"

#include <QFileInfo>
#include <QHash>
#include <QRandomGenerator>
#include <QTest>

#include <sys/syscall.h>

// What a disk holds after a power failure: what was synced, and of all that was written since any
// sectors, in any order. Names of files come and go with the sync of their folder.

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

/// Watches what a writing process has synced.
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
        const QString path =
            QFile::symLinkTarget(QStringLiteral("/proc/%1/fd/%2").arg(call.pid).arg(call.fd));
        if (QFileInfo(path).isDir())
            mIsNameSynced = path == folder();
        else
            mSynced[path] = fileContents(path);
    }

    void failPower(quint32 seed) const
    {
        QRandomGenerator random(seed);
        writeFile(mSong, mixed(mSynced[mSong], fileContents(mSong), random));
        for (auto it = mSynced.begin(); it != mSynced.end(); ++it)
            if (it.key() != mSong)
                bringBack(it.key(), it.value(), random);
    }

private:
    static QString folder() { return stateFolder() + QStringLiteral("/journal"); }

    void bringBack(const QString &journal, const QByteArray &synced, QRandomGenerator &random) const
    {
        const bool exists = QFile::exists(journal);
        const QByteArray written = exists ? fileContents(journal) : synced;
        const bool mayBeMissing = !exists || !mIsNameSynced;
        if (mayBeMissing && random.bounded(2))
            QFile::remove(journal);
        else
            writeFile(journal, mixed(synced, written, random));
    }

    QString mSong;
    QHash<QString, QByteArray> mSynced;
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

    void leavesOldOrNew_data();
    void leavesOldOrNew();
};

void PowerFailureTest::leavesOldOrNew_data()
{
    QTest::addColumn<int>("number");
    int number = 0;
    for (const Shape &shape : shapes())
        QTest::newRow(shape.name) << number++;
}

void PowerFailureTest::leavesOldOrNew()
{
    QFETCH(int, number);
    const Shape shape = shapes()[static_cast<size_t>(number)];
    const Quiet quiet;
    int restored = 0;
    TracedRun run;
    for (int at = 0; at <= run.calls; ++at)
        for (quint32 seed = 0; seed < 8; ++seed) {
            const Scene scene;
            Disk disk(scene);
            run = write(scene, shape, {.kind = Disturbance::Kind::KillAfter, .at = at},
                        [&](const TracedCall &call) { disk.watch(call); });
            disk.failPower(seed);
            restored += scene.isOld() || scene.isNew(shape) ? 0 : 1;

            recover();

            const auto what = QStringLiteral("call %1, seed %2").arg(at).arg(seed).toLatin1();
            QVERIFY2(scene.isOld() || scene.isNew(shape), what.constData());
            QCOMPARE(scene.leftOvers(), QStringList());
        }
    QVERIFY(restored > 3);
}

QTEST_GUILESS_MAIN(PowerFailureTest)
#include "tst_powerfailure.moc"
