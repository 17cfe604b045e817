#include "base/descriptor.h"
#include "base/folders.h"
#include "base/inplacefile.h"
#include "base/texts.h"
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

/// New bytes, or a range kept from the old file.
struct Part {
    QByteArray bytes = {};
    qint64 offset = 0;
    qint64 length = 0;
};
using Parts = QList<Part>;

FileContents contentsFrom(const Parts &parts)
{
    FileContents contents;
    for (const Part &part : parts) {
        contents.append(part.bytes);
        contents.keep(part.offset, part.length);
    }
    return contents;
}

QByteArray expectedFrom(const Parts &parts, const QByteArray &old)
{
    QByteArray expected;
    for (const Part &part : parts)
        expected += part.bytes + old.mid(part.offset, part.length);
    return expected;
}

/// Bytes that differ from their neighbours, so that a shift by any distance shows.
QByteArray song(int size)
{
    QByteArray bytes(size, '\0');
    quint32 state = 1;
    for (char &byte : bytes)
        byte = static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
    return bytes;
}

struct stat statOf(const QString &path)
{
    struct stat found = {};
    ::stat(QFile::encodeName(path).constData(), &found);
    return found;
}

bool sameTime(const timespec &a, const timespec &b)
{
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

constexpr timespec longAgo[] = {{1'000'000'000, 5}, {1'100'000'000, 123'456'789}};

void makeOld(const QString &path)
{
    ::utimensat(AT_FDCWD, QFile::encodeName(path).constData(), longAgo, 0);
}

InPlaceFile::Outcome replace(const QString &path, const Parts &parts,
                             KeepTime keepTime = KeepTime::No)
{
    const auto opened = InPlaceFile::open(path);
    if (!opened.file)
        return {.kind = Kind::Failed, .error = opened.error};
    return opened.file->replaceContents(contentsFrom(parts), keepTime);
}

int journals()
{
    return static_cast<int>(
        QDir(stateFolder() + QStringLiteral("/journal")).entryList(QDir::Files).size());
}
} // namespace

Q_DECLARE_METATYPE(Part)

class InPlaceFileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installTexts(); }
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
    void refuses_data();
    void refuses();
    void refusesAFileChangedSinceItWasOpened_data();
    void refusesAFileChangedSinceItWasOpened();
    void refusesWhereTheOldBytesCannotBeKept();
    void leavesTheOldBytesWhenThereIsNoRoom();
    void readsRangesOfTheOpenFile();
    void copiesLittleMemoryForAHugeFile();

private:
    std::unique_ptr<QTemporaryDir> mFolder;
    QString mPath;
};

void InPlaceFileTest::holdsWhatItShall_data()
{
    constexpr int size = 300'000;
    QTest::addColumn<int>("size");
    QTest::addColumn<Parts>("parts");

    const QByteArray tag(5000, 'T');
    QTest::newRow("head of the same size")
        << size << Parts{{tag}, {.offset = 5000, .length = size - 5000}};
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
    QVERIFY(fileContents(mPath) == expectedFrom(parts, old));
    QCOMPARE(statOf(mPath).st_ino, inode);
    QCOMPARE(journals(), 0);
}

void InPlaceFileTest::leavesAnUnchangedFileAlone()
{
    const QByteArray old(200'000, 'x');
    writeFile(mPath, old);
    const auto before = statOf(mPath);

    // The moved range holds the same bytes as what stands there.
    const auto outcome =
        replace(mPath, {{old.left(70'000)}, {.offset = 50'000, .length = 130'000}});

    QCOMPARE(outcome.kind, Kind::Unchanged);
    QVERIFY(sameTime(statOf(mPath).st_mtim, before.st_mtim));
    QVERIFY(sameTime(statOf(mPath).st_ctim, before.st_ctim));
    QVERIFY(!QDir(stateFolder()).exists());
}

void InPlaceFileTest::keepsWhatBelongsToTheFile()
{
    writeFile(mPath, song(9000));
    const QByteArray name = QFile::encodeName(mPath);
    const QByteArray other = name + ".other";
    QCOMPARE(::chmod(name.constData(), 06751), 0);
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
    QVERIFY(sameTime(statOf(mPath).st_mtim, longAgo[1]));

    QCOMPARE(replace(mPath, {{"more"}, {.length = 9003}}, KeepTime::No).kind, Kind::Written);
    QVERIFY(statOf(mPath).st_mtim.tv_sec > longAgo[1].tv_sec);
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

void InPlaceFileTest::refuses_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("no file") << QStringLiteral("none.mp3");
    QTest::newRow("a folder") << QStringLiteral("folder");
    QTest::newRow("a pipe, without waiting for its other end") << QStringLiteral("pipe");
    QTest::newRow("a link to nowhere") << QStringLiteral("link");
    QTest::newRow("a file that another write has open") << QStringLiteral("busy");
}

void InPlaceFileTest::refuses()
{
    QFETCH(QString, name);
    const QString path = mFolder->filePath(name);
    QVERIFY(QDir().mkpath(mFolder->filePath(QStringLiteral("folder"))));
    ::mkfifo(QFile::encodeName(mFolder->filePath(QStringLiteral("pipe"))).constData(), 0600);
    QFile::link(QStringLiteral("nowhere"), mFolder->filePath(QStringLiteral("link")));
    writeFile(mFolder->filePath(QStringLiteral("busy")), "song");
    const auto busy = InPlaceFile::open(mFolder->filePath(QStringLiteral("busy")));

    const auto opened = InPlaceFile::open(path);

    QVERIFY(!opened.file);
    QVERIFY(!opened.error.isEmpty());
}

void InPlaceFileTest::refusesAFileChangedSinceItWasOpened_data()
{
    QTest::addColumn<QString>("change");
    for (const auto *change : {"shortened", "lengthened", "rewritten", "replaced", "removed"})
        QTest::newRow(change) << QString::fromLatin1(change);
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
    QVERIFY(!outcome.error.isEmpty());
    QCOMPARE(QFile::exists(mPath) ? fileContents(mPath) : QByteArray(), theirs);
    QCOMPARE(journals(), 0);
}

void InPlaceFileTest::refusesWhereTheOldBytesCannotBeKept()
{
    writeFile(mPath, song(9000));
    // Not even root can make a folder below a file.
    writeFile(mFolder->filePath(QStringLiteral("state")), "a file");

    const auto outcome = replace(mPath, {{"tag"}, {.length = 9000}});

    QCOMPARE(outcome.kind, Kind::Failed);
    QVERIFY2(outcome.error.contains(stateFolder()), qPrintable(outcome.error));
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
    QCOMPARE(outcome.error, reasonOf(std::make_error_code(std::errc::file_too_large)));
    QVERIFY(fileContents(mPath) == song(300'000));
    QCOMPARE(journals(), 0);
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
