#include "base/descriptor.h"
#include "base/folders.h"
#include "base/replacedbytes.h"
#include "base/texts.h"
#include "support/songscene.h"
#include "support/table.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
using Kind = InPlaceFile::Outcome::Kind;

using Change = std::function<void(const QString &)>;

constexpr int size = 300'000; // more than is moved at once
const Parts grown{{"tag"}, {.length = 9000}};

QByteArray old()
{
    return noise(9000, 1);
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

Q_DECLARE_METATYPE(Change)

class InPlaceFileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        installTexts();
        // The rights of files mean nothing to root.
        constexpr uid_t nobody = 65534;
        if (::geteuid() == 0)
            QVERIFY(::setegid(nobody) == 0 && ::seteuid(nobody) == 0);
    }
    void init()
    {
        mFolder = std::make_unique<QTemporaryDir>();
        qputenv("XDG_STATE_HOME", QFile::encodeName(mFolder->filePath(u"state"_s)));
        mPath = mFolder->filePath(u"song.mp3"_s);
        writeFile(mPath, old());
    }

    void holdsWhatItShall_data()
    {
        const Table<Parts> row("parts");
        const QByteArray tag(5000, 'T');
        row("grown head", {{tag}, {.offset = 10, .length = size - 10}});
        row("head grown by whole blocks", {{QByteArray(131072, 'T')}, {.length = size}});
        row("head removed", {{.offset = 70'001, .length = size - 70'001}});
        row("end cut", {{.length = size - 128}});
        row("ranges swap", {{.offset = 200'000, .length = 100'000}, {tag}, {.length = 200'000}});
        row("a range twice", {{.length = size}, {.offset = 1000, .length = 90'000}, {tag}});
        row("a range from where nothing changes and one from where it does",
            {{.length = 1000}, {tag}, {.offset = 500, .length = 7000}});
        row("emptied", {});
    }

    void holdsWhatItShall()
    {
        QFETCH(Parts, parts);
        const QByteArray from = noise(size, 1);
        writeFile(mPath, from);
        const ino_t inode = statOf(mPath).st_ino;

        const auto outcome = replace(mPath, parts);

        QCOMPARE(outcome.error, QString());
        QCOMPARE(outcome.kind, Kind::Written);
        QVERIFY(fileContents(mPath) == bytesFrom(parts, from));
        QCOMPARE(statOf(mPath).st_ino, inode);
        QCOMPARE(leftOvers(), QStringList());
    }

    void whatAWriteTookIsGivenBack_data() { holdsWhatItShall_data(); }

    void whatAWriteTookIsGivenBack()
    {
        QFETCH(Parts, parts);
        const QByteArray from = noise(size, 1);
        writeFile(mPath, from);
        const auto replaced =
            ReplacedBytes::by(contentsFrom(parts), *InPlaceFile::open(mPath).file);
        const bool isKeptTwice = QByteArrayView(QTest::currentDataTag()).startsWith("a range");
        QCOMPARE(replaced.has_value(), !isKeptTwice);
        if (isKeptTwice)
            return;
        QCOMPARE(replace(mPath, parts).kind, Kind::Written);
        const QByteArray written = fileContents(mPath);
        ReplacedBytes undone;
        QByteArray changed = written + '!';
        if (parts.value(0).bytes.size() > 0)
            changed = QByteArray(written).replace(0, 1, "!");
        writeFile(mPath, changed);
        QCOMPARE(replaced->giveBack(mPath, KeepTime::No, nullptr, undone).kind, Kind::Failed);
        QCOMPARE(fileContents(mPath), changed);
        writeFile(mPath, written);
        QCOMPARE(replaced->giveBack(mPath, KeepTime::No, nullptr, undone).kind, Kind::Written);
        QCOMPARE(fileContents(mPath), from);
        QCOMPARE(undone.giveBack(mPath, KeepTime::No, nullptr, undone).kind, Kind::Written);
        QCOMPARE(fileContents(mPath), written);
    }

    void leavesAnUnchangedFileAlone()
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

    void keepsWhatBelongsToTheFile()
    {
        const QString other = mFolder->filePath(u"other.mp3"_s);
        const QString link = mFolder->filePath(u"link.mp3"_s);
        QCOMPARE(::link(qPrintable(mPath), qPrintable(other)), 0);
        QVERIFY(QFile::link(mPath, link));
        setMode(mPath, 06751);
        makeOld(mPath);

        QCOMPARE(replace(link, grown, KeepTime::Yes).kind, Kind::Written);

        QVERIFY(hasOldTime(mPath));
        QVERIFY(QFileInfo(link).isSymLink());
        QCOMPARE(statOf(mPath).st_mode & 07777, 06751U);
        QCOMPARE(fileContents(other), "tag" + old());
        QCOMPARE(replace(mPath, {{"more"}}, KeepTime::No).kind, Kind::Written);
        QVERIFY(!hasOldTime(mPath));
    }

    void writesWhereNoFileCanBeMade()
    {
        QVERIFY(QDir().mkpath(stateFolder()));
        setMode(mFolder->path(), 0555);
        QVERIFY(!QFile(mFolder->filePath(u"new"_s)).open(QIODevice::WriteOnly));

        const auto outcome = replace(mPath, grown);

        setMode(mFolder->path(), 0755); // for its removal
        QCOMPARE(outcome.error, QString());
        QCOMPARE(fileContents(mPath), "tag" + old());
    }

    void refuses_data()
    {
        const Table<QString, QString> row("name", "error");
        row("no file", u"none.mp3"_s, reason(std::errc::no_such_file_or_directory));
        row("a folder", u"folder"_s, reason(std::errc::is_a_directory));
        row("a pipe, without waiting for its other end", u"pipe"_s, qtTrId("ReasonNotRegular"));
        row("a link to nowhere", u"link"_s, reason(std::errc::no_such_file_or_directory));
        row("a file that another write has open", u"song.mp3"_s, qtTrId("ReasonFileBusy"));
        row("a file that may only be read", u"protected"_s, reason(std::errc::permission_denied));
    }

    void refuses()
    {
        QFETCH(QString, name);
        const QDir folder(mFolder->path());
        QVERIFY(folder.mkpath(u"folder"_s));
        ::mkfifo(qPrintable(folder.filePath(u"pipe"_s)), 0600);
        QFile::link(u"nowhere"_s, folder.filePath(u"link"_s));
        writeFile(folder.filePath(u"protected"_s), "song");
        setMode(folder.filePath(u"protected"_s), 0444);
        const auto busy = InPlaceFile::open(mPath);

        const auto opened = InPlaceFile::open(folder.filePath(name));

        QVERIFY(!opened.file);
        QTEST(opened.error, "error");
    }

    void refusesAFileChangedSinceItWasOpened_data()
    {
        const Table<QString, Change> row("error", "change");
        const auto resized = [](int to) {
            return [to](const QString &p) { QFile::resize(p, to); };
        };
        row("shortened", qtTrId("ReasonFileShortened"), resized(100));
        row("lengthened", qtTrId("ReasonFileChanged"), resized(10'000));
        row("rewritten", qtTrId("ReasonFileChanged"),
            [](const QString &path) { writeFile(path, old().toUpper()); });
        row("removed", qtTrId("ReasonFileReplaced"),
            [](const QString &path) { QFile::remove(path); });
        row("replaced", qtTrId("ReasonFileReplaced"), [](const QString &path) {
            QFile::remove(path);
            writeFile(path, old());
        });
    }

    void refusesAFileChangedSinceItWasOpened()
    {
        QFETCH(Change, change);
        makeOld(mPath); // the next write shows in the time even where its unit is coarse
        const auto opened = InPlaceFile::open(mPath);
        QVERIFY(opened.file);
        change(mPath);
        const QByteArray theirs = QFile::exists(mPath) ? fileContents(mPath) : QByteArray();

        const auto outcome = opened.file->replaceContents(contentsFrom(grown), KeepTime::No);

        QCOMPARE(outcome.kind, Kind::Failed);
        QTEST(outcome.error, "error");
        QCOMPARE(QFile::exists(mPath) ? fileContents(mPath) : QByteArray(), theirs);
        QCOMPARE(leftOvers(), QStringList());
    }

    void refusesWhereTheOldBytesCannotBeKept_data()
    {
        const Table<QString> row("folder");
        row("no state folder can be made", u"state"_s);
        row("no folder can be made in it", u"state/tagwright"_s);
        row("no journal can be made", u"state/tagwright/journal"_s);
    }

    void refusesWhereTheOldBytesCannotBeKept()
    {
        QFETCH(QString, folder);
        QVERIFY(QDir(mFolder->path()).mkpath(folder));
        setMode(mFolder->filePath(folder), 0555);

        const auto outcome = replace(mPath, grown);

        QCOMPARE(outcome.kind, Kind::Failed);
        QCOMPARE(outcome.error,
                 qtTrId("ReasonNoJournal")
                     .arg(stateFolder() + u"/journal"_s, reason(std::errc::permission_denied)));
        QCOMPARE(fileContents(mPath), old());
    }

    void leavesTheSongWhenItsJournalDoesNotFit()
    {
        const QByteArray old = noise(size, 1);
        writeFile(mPath, old);
        rlimit former = {};
        ::getrlimit(RLIMIT_FSIZE, &former);
        // Enough for the bytes that change, but not for a journal of them.
        const rlimit limit = {.rlim_cur = 100'000, .rlim_max = former.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);

        const auto outcome =
            replace(mPath, {{noise(100'000, 2)}, {.offset = 100'000, .length = size - 100'000}});

        ::setrlimit(RLIMIT_FSIZE, &former);
        QCOMPARE(outcome.error,
                 qtTrId("ReasonNoJournal")
                     .arg(stateFolder() + u"/journal"_s, reason(std::errc::file_too_large)));
        QVERIFY(fileContents(mPath) == old);
        QCOMPARE(leftOvers(), QStringList());
    }

private:
    std::unique_ptr<QTemporaryDir> mFolder;
    QString mPath;
};

QTEST_GUILESS_MAIN(InPlaceFileTest)
#include "tst_inplacefile.moc"
