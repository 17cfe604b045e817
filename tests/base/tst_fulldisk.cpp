#include "base/descriptor.h"
#include "base/texts.h"
#include "support/songscene.h"
#include "support/table.h"

#include <QDir>
#include <QTemporaryDir>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

// Disks that are really full: small ones in memory, which only this program sees.

using namespace Qt::StringLiterals;

namespace {
constexpr int diskSize = 1 << 20;

void writeLine(const char *path, const QByteArray &line)
{
    QFile file(QString::fromLatin1(path));
    if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        file.write(line);
}

/// What is mounted from now on is seen by this process alone and ends with it. Others than root
/// may do that among users of their own, which need a single thread.
bool takeOwnMounts()
{
    const QByteArray user = QByteArray::number(::getuid());
    const QByteArray group = QByteArray::number(::getgid());
    const bool isRoot = ::geteuid() == 0;
    if (::unshare(isRoot ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER) != 0)
        return false;
    if (!isRoot) {
        writeLine("/proc/self/setgroups", "deny");
        writeLine("/proc/self/uid_map", user + ' ' + user + " 1");
        writeLine("/proc/self/gid_map", group + ' ' + group + " 1");
    }
    return ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

bool mount(const QString &folder, const QByteArray &options)
{
    return ::mount("none", QFile::encodeName(folder).constData(), "tmpfs", 0, options.constData())
        == 0;
}

std::error_code refusal;
} // namespace

class FullDiskTest : public QObject {
    Q_OBJECT

public:
    /// Called before there are threads.
    static void initMain() { refusal = takeOwnMounts() ? std::error_code() : lastError(); }

private Q_SLOTS:
    void initTestCase()
    {
        installTexts();
        if (refusal)
            QSKIP(qPrintable(u"nothing can be mounted: "_s + reasonOf(refusal)));
        QVERIFY(QDir().mkpath(mDisk) && QDir().mkpath(mElsewhere));
    }

    void leavesTheSongAsItWas_data()
    {
        // Of the disk; of the song; of the journal; bytes at the song's end that take no room.
        const Table<QByteArray, QString, QString, int, Parts, QString> row(
            "room", "folder", "state", "hole", "parts", "error");
        const QString reason = reasonOf(std::make_error_code(std::errc::no_space_on_device));
        const QString noJournal =
            qtTrId("ReasonNoJournal").arg(mDisk + u"/tagwright/journal"_s, reason);
        const Parts grown = {{noise(diskSize, 2)}, {.length = songSize}};
        const Parts changed = {{noise(songSize, 2)}};
        row("the song cannot grow", "size=1m", mDisk, mElsewhere, 0, grown, reason);
        row("the journal does not fit", "size=1m", mElsewhere, mDisk, 0, grown, noJournal);
        row("the journal does not fit beside the song", "size=150k", mDisk, mDisk, 0, changed,
            noJournal);
        row("the state folder cannot be made", "nr_inodes=1", mElsewhere, mDisk, 0, changed,
            noJournal);
        row("the journal cannot be made", "nr_inodes=3", mElsewhere, mDisk, 0, changed, noJournal);
        row("a hole cannot be filled, not even with the zeros that it held", "size=1m", mDisk,
            mElsewhere, diskSize, {{noise(songSize + diskSize, 2)}},
            qtTrId("ReasonNotRolledBack").arg(reason));
    }

    void leavesTheSongAsItWas()
    {
        QFETCH(QByteArray, room);
        QFETCH(QString, folder);
        QFETCH(QString, state);
        QFETCH(int, hole);
        QFETCH(Parts, parts);
        QVERIFY(mount(mDisk, room) && mount(mElsewhere, {}));
        qputenv("XDG_STATE_HOME", QFile::encodeName(state));
        const QString path = folder + u"/song.mp3"_s;
        const QByteArray old = oldBytes() + QByteArray(hole, '\0');
        writeFile(path, oldBytes());
        QVERIFY(QFile::resize(path, old.size()));
        makeOld(path);

        const auto outcome = replace(path, parts);

        QTEST(outcome.error, "error");
        QVERIFY(fileContents(path) == old);
        QVERIFY(hasOldTime(path));
        QCOMPARE(leftOvers().size(), hole ? 1 : 0); // kept where the song could not be rolled back
        QCOMPARE(filesIn(mFolder.path()).size(), 1 + leftOvers().size());

        const Quiet quiet;
        recoverInterruptedWrites();
        QVERIFY(fileContents(path) == old);
        QCOMPARE(filesIn(mFolder.path()), QStringList(path));
    }

    void cleanup()
    {
        for (const QString &disk : {mDisk, mElsewhere})
            ::umount2(QFile::encodeName(disk).constData(), MNT_DETACH);
    }

private:
    const QTemporaryDir mFolder;
    const QString mDisk = mFolder.filePath(u"disk"_s);
    const QString mElsewhere = mFolder.filePath(u"elsewhere"_s);
};

QTEST_GUILESS_MAIN(FullDiskTest)
#include "tst_fulldisk.moc"
