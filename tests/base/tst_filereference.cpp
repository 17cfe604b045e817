#include "base/filereference.h"
#include "support/table.h"
#include "support/tempfiles.h"

#include <functional>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {
using Happening = std::function<void(const QDir &)>;
const QString song = u"song.mp3"_s;
const QString deleted = u" (deleted)"_s;

void rename(const QDir &folder, const QString &from, const QString &to)
{
    QCOMPARE(std::rename(qPrintable(folder.filePath(from)), qPrintable(folder.filePath(to))), 0);
}
} // namespace

Q_DECLARE_METATYPE(Happening)

class FileReferenceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void follows_data()
    {
        const Table<Happening, QString> row("happening", "found"); // empty: cannot
        const auto moved = [](const QString &to) {
            return [to](const QDir &d) { rename(d, song, to); };
        };
        row(
            "nothing happened", [](const QDir &) {}, song);
        row("moved to another folder", moved(u"Ärzte/1/song.mp3"_s), u"Ärzte/1/song.mp3"_s);
        row("renamed to what a deleted file is called", moved(song + deleted), song + deleted);
        Happening happening = [](const QDir &d) {
            rename(d, song, u"Ärzte/song.mp3"_s);
            rename(d, u"Ärzte"_s, u"b"_s);
        };
        row("its folder renamed", happening, u"b/song.mp3"_s);
        happening = [](const QDir &d) {
            writeFile(d.filePath(u"new"_s), "new");
            rename(d, u"new"_s, song);
        };
        row("saved anew by another program", happening, song);
        happening = [](const QDir &d) {
            rename(d, song, u"song.mp3~"_s);
            writeFile(d.filePath(song), "new");
        };
        row("saved anew by a program that keeps the former file beside it", happening, song);
        happening = [](const QDir &d) {
            QFile::remove(d.filePath(song));
            writeFile(d.filePath(song + deleted), "other");
        };
        row("deleted, and a file called like a deleted one lies there", happening, {});
    }

    void follows()
    {
        QFETCH(Happening, happening);
        QFETCH(QString, found);
        const QTemporaryDir folder;
        const QDir inside(QFileInfo(folder.path()).canonicalFilePath());
        const QString path = inside.filePath(song);
        QVERIFY(inside.mkpath(u"Ärzte/1"_s));
        writeFile(path, "song");
        const auto reference = FileReference::referenceTo(path);
        QVERIFY(reference);

        happening(inside);

        QCOMPARE(reference->path(),
                 found.isEmpty() ? std::nullopt : std::optional(inside.filePath(found)));
    }

    void needsAFile()
    {
        const QTemporaryDir folder;
        QVERIFY(!FileReference::referenceTo(folder.filePath(u"none.mp3"_s)));
        QVERIFY(!FileReference::referenceTo(folder.path()));
    }

    void worksForMoreFilesThanCanBeOpen()
    {
        rlimit limit = {};
        ::getrlimit(RLIMIT_NOFILE, &limit);
        const rlimit few = {.rlim_cur = 40, .rlim_max = limit.rlim_max};
        const QTemporaryDir folder;
        std::vector<std::unique_ptr<FileReference>> references;
        writeFile(folder.filePath(song), "song");
        ::setrlimit(RLIMIT_NOFILE, &few);
        for (int i = 0; i < 100; ++i)
            references.push_back(FileReference::referenceTo(folder.filePath(song)));
        ::setrlimit(RLIMIT_NOFILE, &limit);
        for (const auto &reference : references)
            QCOMPARE(reference->path(), folder.filePath(song));
    }
};

QTEST_GUILESS_MAIN(FileReferenceTest)
#include "tst_filereference.moc"
