#include "base/descriptor.h"
#include "base/folders.h"
#include "base/inplacefile.h"
#include "base/texts.h"
#include "support/songscene.h"
#include "support/tempfiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
using Kind = InPlaceFile::Outcome::Kind;

QByteArray song(int size)
{
    return noise(size, 1);
}

struct stat statOf(const QString &path)
{
    struct stat found = {};
    ::stat(QFile::encodeName(path).constData(), &found);
    return found;
}

void setMode(const QString &path, mode_t mode)
{
    QCOMPARE(::chmod(QFile::encodeName(path).constData(), mode), 0);
}

QString reason(std::errc error)
{
    return reasonOf(std::make_error_code(error));
}
} // namespace

class InPlaceFileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init()
    {
        mFolder = std::make_unique<QTemporaryDir>();
        qputenv("XDG_STATE_HOME", QFile::encodeName(mFolder->filePath(QStringLiteral("state"))));
        mPath = mFolder->filePath(QStringLiteral("song.mp3"));
    }

    void holdsWhatItShall_data();
    void holdsWhatItShall();
    void leavesAnUnchangedFileAlone();
    void keepsWhatBelongsToTheFile();
    void keepsTimesWhenAsked();
    void followsLinks();
    void writesWhereNoFileCanBeMade();
    void refuses_data();
    void refuses();
    void refusesAFileChangedSinceItWasOpened_data();
    void refusesAFileChangedSinceItWasOpened();
    void refusesWhereTheOldBytesCannotBeKept_data();
    void refusesWhereTheOldBytesCannotBeKept();
    void leavesTheOldBytesWhenThereIsNoRoom();
    void readsRangesOfTheOpenFile();
    void copiesLittleMemoryForAHugeFile();

private:
    std::unique_ptr<QTemporaryDir> mFolder;
    QString mPath;
};

void InPlaceFileTest::initTestCase()
{
    installTexts();
    // The rights of files mean nothing to root.
    constexpr uid_t nobody = 65534;
    if (::geteuid() == 0)
        QVERIFY(::setegid(nobody) == 0 && ::seteuid(nobody) == 0);
}

void InPlaceFileTest::holdsWhatItShall_data()
{
    constexpr int size = 300'000;
    QTest::addColumn<int>("size");
    QTest::addColumn<Parts>("parts");

    const QByteArray tag(5000, 'T');
    QTest::newRow("head and end of the same size")
        << size << Parts{{tag}, {.offset = 5000, .length = size - 5128}, {QByteArray(128, 'E')}};
    QTest::newRow("grown head") << size << Parts{{tag}, {.offset = 10, .length = size - 10}};
    QTest::newRow("head grown by whole blocks")
        << size << Parts{{QByteArray(131072, 'T')}, {.length = size}};
    QTest::newRow("shrunk head") << size
                                 << Parts{{tag}, {.offset = 200'000, .length = size - 200'000}};
    QTest::newRow("head removed") << size << Parts{{.offset = 70'001, .length = size - 70'001}};
    QTest::newRow("all in front") << size << Parts{{tag}, {.length = size}};
    QTest::newRow("end added") << size << Parts{{.length = size}, {tag}};
    QTest::newRow("end cut") << size << Parts{{.length = size - 128}};
    QTest::newRow("ranges change places")
        << size << Parts{{.offset = 200'000, .length = 100'000}, {tag}, {.length = 200'000}};
    QTest::newRow("a range twice")
        << size << Parts{{.length = size}, {.offset = 1000, .length = 90'000}, {tag}};
    QTest::newRow("a range from where nothing changes and one from where it does")
        << size << Parts{{.length = 1000}, {tag}, {.offset = 500, .length = 7000}};
    QTest::newRow("emptied") << size << Parts{};
    QTest::newRow("filled from nothing") << 0 << Parts{{tag}};
    QTest::newRow("all new") << size << Parts{{QByteArray(70'000, 'N')}};
}

void InPlaceFileTest::holdsWhatItShall()
{
    QFETCH(int, size);
    QFETCH(Parts, parts);
    const QByteArray old = song(size);
    writeFile(mPath, old);
    const ino_t inode = statOf(mPath).st_ino;

    const auto outcome = replace(mPath, parts);

    QCOMPARE(outcome.error, QString());
    QCOMPARE(outcome.kind, Kind::Written);
    QVERIFY(fileContents(mPath) == bytesFrom(parts, old));
    QCOMPARE(statOf(mPath).st_ino, inode);
    QCOMPARE(leftOvers(), QStringList());
}

void InPlaceFileTest::leavesAnUnchangedFileAlone()
{
    const QByteArray old(200'000, 'x');
    writeFile(mPath, old);
    makeOld(mPath);
    const timespec before = statOf(mPath).st_ctim;

    // The moved range holds the same bytes as what stands there.
    const auto outcome =
        replace(mPath, {{old.left(70'000)}, {.offset = 50'000, .length = 130'000}});

    QCOMPARE(outcome.kind, Kind::Unchanged);
    QVERIFY(hasOldTime(mPath));
    QCOMPARE(statOf(mPath).st_ctim.tv_nsec, before.tv_nsec);
    QVERIFY(!QDir(stateFolder()).exists());
}

void InPlaceFileTest::keepsWhatBelongsToTheFile()
{
    writeFile(mPath, song(9000));
    const QByteArray name = QFile::encodeName(mPath);
    const QByteArray other = name + ".other";
    setMode(mPath, 06751);
    QCOMPARE(::link(name.constData(), other.constData()), 0);

    QCOMPARE(replace(mPath, {{"tag"}, {.length = 9000}}).kind, Kind::Written);

    QCOMPARE(statOf(mPath).st_mode & 07777, 06751U);
    QCOMPARE(fileContents(QFile::decodeName(other)), "tag" + song(9000));
}

void InPlaceFileTest::keepsTimesWhenAsked()
{
    writeFile(mPath, song(9000));
    makeOld(mPath);

    QCOMPARE(replace(mPath, {{"tag"}, {.length = 9000}}, KeepTime::Yes).kind, Kind::Written);
    QVERIFY(hasOldTime(mPath));

    QCOMPARE(replace(mPath, {{"more"}, {.length = 9003}}, KeepTime::No).kind, Kind::Written);
    QVERIFY(!hasOldTime(mPath));
}

void InPlaceFileTest::followsLinks()
{
    writeFile(mPath, song(9000));
    const QString link = mFolder->filePath(QStringLiteral("link.mp3"));
    QVERIFY(QFile::link(mPath, link));

    QCOMPARE(replace(link, {{"tag"}}).kind, Kind::Written);

    QVERIFY(QFileInfo(link).isSymLink());
    QCOMPARE(fileContents(mPath), QByteArray("tag"));
}

void InPlaceFileTest::writesWhereNoFileCanBeMade()
{
    const QDir album(mFolder->filePath(QStringLiteral("album")));
    QVERIFY(album.mkpath(QStringLiteral(".")));
    const QString path = album.filePath(QStringLiteral("song.mp3"));
    writeFile(path, song(9000));
    setMode(album.path(), 0555);
    QVERIFY(!QFile(album.filePath(QStringLiteral("new"))).open(QIODevice::WriteOnly));

    const auto outcome = replace(path, {{"tag"}, {.length = 9000}});

    setMode(album.path(), 0755); // for its removal
    QCOMPARE(outcome.error, QString());
    QCOMPARE(fileContents(path), "tag" + song(9000));
    QCOMPARE(album.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(), 1);
}

void InPlaceFileTest::refuses_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("error");
    QTest::newRow("no file") << QStringLiteral("none.mp3")
                             << reason(std::errc::no_such_file_or_directory);
    QTest::newRow("a folder") << QStringLiteral("folder") << reason(std::errc::is_a_directory);
    QTest::newRow("a pipe, without waiting for its other end")
        << QStringLiteral("pipe") << qtTrId("ReasonNotRegular");
    QTest::newRow("a link to nowhere")
        << QStringLiteral("link") << reason(std::errc::no_such_file_or_directory);
    QTest::newRow("a file that another write has open")
        << QStringLiteral("busy") << qtTrId("ReasonFileBusy");
    QTest::newRow("a file that may only be read")
        << QStringLiteral("protected") << reason(std::errc::permission_denied);
}

void InPlaceFileTest::refuses()
{
    QFETCH(QString, name);
    const QDir folder(mFolder->path());
    QVERIFY(folder.mkpath(QStringLiteral("folder")));
    ::mkfifo(QFile::encodeName(folder.filePath(QStringLiteral("pipe"))).constData(), 0600);
    QFile::link(QStringLiteral("nowhere"), folder.filePath(QStringLiteral("link")));
    writeFile(folder.filePath(QStringLiteral("protected")), "song");
    setMode(folder.filePath(QStringLiteral("protected")), 0444);
    writeFile(folder.filePath(QStringLiteral("busy")), "song");
    const auto busy = InPlaceFile::open(folder.filePath(QStringLiteral("busy")));

    const auto opened = InPlaceFile::open(folder.filePath(name));

    QVERIFY(!opened.file);
    QTEST(opened.error, "error");
}

void InPlaceFileTest::refusesAFileChangedSinceItWasOpened_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("error");
    QTest::newRow("shortened") << QStringLiteral("shortened") << qtTrId("ReasonFileShortened");
    QTest::newRow("lengthened") << QStringLiteral("lengthened") << qtTrId("ReasonFileChanged");
    QTest::newRow("rewritten") << QStringLiteral("rewritten") << qtTrId("ReasonFileChanged");
    QTest::newRow("replaced") << QStringLiteral("replaced") << qtTrId("ReasonFileReplaced");
    QTest::newRow("removed") << QStringLiteral("removed") << qtTrId("ReasonFileReplaced");
}

void InPlaceFileTest::refusesAFileChangedSinceItWasOpened()
{
    QFETCH(QString, change);
    writeFile(mPath, song(9000));
    makeOld(mPath); // the next write shows in the time even where its unit is coarse
    const auto opened = InPlaceFile::open(mPath);
    QVERIFY(opened.file);
    if (change == QStringLiteral("shortened"))
        QVERIFY(QFile::resize(mPath, 100));
    if (change == QStringLiteral("lengthened"))
        QVERIFY(QFile::resize(mPath, 10'000));
    if (change == QStringLiteral("rewritten"))
        writeFile(mPath, song(9000).toUpper());
    if (change == QStringLiteral("replaced") || change == QStringLiteral("removed"))
        QVERIFY(QFile::remove(mPath));
    if (change == QStringLiteral("replaced"))
        writeFile(mPath, song(9000));
    const QByteArray theirs = QFile::exists(mPath) ? fileContents(mPath) : QByteArray();

    const auto outcome =
        opened.file->replaceContents(contentsFrom({{"tag"}, {.length = 9000}}), KeepTime::No);

    QCOMPARE(outcome.kind, Kind::Failed);
    QTEST(outcome.error, "error");
    QCOMPARE(QFile::exists(mPath) ? fileContents(mPath) : QByteArray(), theirs);
    QCOMPARE(leftOvers(), QStringList());
}

void InPlaceFileTest::refusesWhereTheOldBytesCannotBeKept_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("no state folder can be made") << QStringLiteral("state");
    QTest::newRow("no folder can be made in it") << QStringLiteral("state/tagwright");
    QTest::newRow("no journal can be made") << QStringLiteral("state/tagwright/journal");
}

void InPlaceFileTest::refusesWhereTheOldBytesCannotBeKept()
{
    QFETCH(QString, folder);
    writeFile(mPath, song(9000));
    QVERIFY(QDir(mFolder->path()).mkpath(folder));
    setMode(mFolder->filePath(folder), 0555);

    const auto outcome = replace(mPath, {{"tag"}, {.length = 9000}});

    QCOMPARE(outcome.kind, Kind::Failed);
    QCOMPARE(
        outcome.error,
        qtTrId("ReasonNoJournal")
            .arg(stateFolder() + QStringLiteral("/journal"), reason(std::errc::permission_denied)));
    QCOMPARE(fileContents(mPath), song(9000));
}

void InPlaceFileTest::leavesTheOldBytesWhenThereIsNoRoom()
{
    writeFile(mPath, song(300'000));
    rlimit former = {};
    ::getrlimit(RLIMIT_FSIZE, &former);
    // Enough for the journal, which holds little of what is only lengthened, but not for the song.
    const rlimit limit = {.rlim_cur = 400'000, .rlim_max = former.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);

    const auto outcome =
        replace(mPath, {{"tag"}, {.offset = 3, .length = 299'997}, {.length = 100'001}});

    ::setrlimit(RLIMIT_FSIZE, &former);
    QCOMPARE(outcome.kind, Kind::Failed);
    QCOMPARE(outcome.error, reason(std::errc::file_too_large));
    QVERIFY(fileContents(mPath) == song(300'000));
    QCOMPARE(leftOvers(), QStringList());
}

void InPlaceFileTest::readsRangesOfTheOpenFile()
{
    writeFile(mPath, song(9000));
    const auto opened = InPlaceFile::open(mPath);
    QVERIFY(opened.file);
    QCOMPARE(opened.file->size(), 9000);
    QCOMPARE(opened.file->read(100, 50), song(9000).mid(100, 50));
    QCOMPARE(opened.file->read(8990, 50), song(9000).right(10));
    QCOMPARE(opened.file->read(20'000, 50), QByteArray());
    QVERIFY(QFile::resize(mPath, 100));
    QCOMPARE(opened.file->read(50, 100), song(9000).mid(50, 50));
}

void InPlaceFileTest::copiesLittleMemoryForAHugeFile()
{
    constexpr qint64 size = 200'000'000;
    writeFile(mPath, "start");
    QVERIFY(QFile::resize(mPath, size));
    rusage before = {};
    ::getrusage(RUSAGE_SELF, &before);

    QCOMPARE(replace(mPath, {{"a longer start"}, {.offset = 5, .length = size - 5}}).kind,
             Kind::Written);

    rusage after = {};
    ::getrusage(RUSAGE_SELF, &after);
    QVERIFY(after.ru_maxrss - before.ru_maxrss < 8'000); // kilobytes
    QCOMPARE(QFileInfo(mPath).size(), size + 9);
    QFile file(mPath);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.read(16), QByteArray("a longer start\0\0", 16));
}

QTEST_GUILESS_MAIN(InPlaceFileTest)
#include "tst_inplacefile.moc"
