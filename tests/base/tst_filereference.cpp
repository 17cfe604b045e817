#include "base/filereference.h"
#include "support/tempfiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <sys/resource.h>

namespace {
using Happening = std::function<void(const QDir &)>;

void rename(const QDir &folder, const char *from, const char *to)
{
    QVERIFY(QFile::rename(folder.filePath(QString::fromUtf8(from)),
                          folder.filePath(QString::fromUtf8(to))));
}
} // namespace

Q_DECLARE_METATYPE(Happening)

class FileReferenceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void follows_data();
    void follows();
    void needsAFile();
    void worksForMoreFilesThanCanBeOpen();
};

void FileReferenceTest::follows_data()
{
    QTest::addColumn<Happening>("happening");
    QTest::addColumn<QString>("found"); // empty: cannot

    QTest::newRow("nothing happened")
        << Happening([](const QDir &) {}) << QStringLiteral("song.mp3");
    QTest::newRow("renamed") << Happening([](const QDir &d) { rename(d, "song.mp3", "other.mp3"); })
                             << QStringLiteral("other.mp3");
    QTest::newRow("moved to another folder") << Happening([](const QDir &d) {
        d.mkpath(QStringLiteral("Ärzte/1"));
        rename(d, "song.mp3", "Ärzte/1/song.mp3");
    }) << QStringLiteral("Ärzte/1/song.mp3");
    QTest::newRow("renamed to what a deleted file is called")
        << Happening([](const QDir &d) { rename(d, "song.mp3", "song.mp3 (deleted)"); })
        << QStringLiteral("song.mp3 (deleted)");
    QTest::newRow("its folder renamed") << Happening([](const QDir &d) {
        d.mkpath(QStringLiteral("a"));
        rename(d, "song.mp3", "a/song.mp3");
        rename(d, "a", "b");
    }) << QStringLiteral("b/song.mp3");
    QTest::newRow("saved anew by another program") << Happening([](const QDir &d) {
        writeFile(d.filePath(QStringLiteral("new")), "new");
        std::rename(qPrintable(d.filePath(QStringLiteral("new"))),
                    qPrintable(d.filePath(QStringLiteral("song.mp3"))));
    }) << QStringLiteral("song.mp3");
    QTest::newRow("saved anew by a program that keeps the former file beside it")
        << Happening([](const QDir &d) {
               rename(d, "song.mp3", "song.mp3~");
               writeFile(d.filePath(QStringLiteral("song.mp3")), "new");
           })
        << QStringLiteral("song.mp3");
    QTest::newRow("deleted") << Happening([](const QDir &d) {
        QFile::remove(d.filePath(QStringLiteral("song.mp3")));
    }) << QString();
    QTest::newRow("deleted, and a file called like a deleted one lies there")
        << Happening([](const QDir &d) {
               QFile::remove(d.filePath(QStringLiteral("song.mp3")));
               writeFile(d.filePath(QStringLiteral("song.mp3 (deleted)")), "other");
           })
        << QString();
}

void FileReferenceTest::follows()
{
    QFETCH(Happening, happening);
    QFETCH(QString, found);
    const QTemporaryDir folder;
    const QDir inside(QFileInfo(folder.path()).canonicalFilePath());
    const QString path = inside.filePath(QStringLiteral("song.mp3"));
    writeFile(path, "song");
    const auto reference = FileReference::referenceTo(path);
    QVERIFY(reference);

    happening(inside);

    const auto now = reference->path();
    QCOMPARE(now.has_value(), !found.isEmpty());
    QCOMPARE(now.value_or(QString()), found.isEmpty() ? QString() : inside.filePath(found));
}

void FileReferenceTest::needsAFile()
{
    const QTemporaryDir folder;
    QVERIFY(!FileReference::referenceTo(folder.filePath(QStringLiteral("none.mp3"))));
    QVERIFY(!FileReference::referenceTo(folder.path()));
}

void FileReferenceTest::worksForMoreFilesThanCanBeOpen()
{
    rlimit limit = {};
    ::getrlimit(RLIMIT_NOFILE, &limit);
    const rlimit few = {.rlim_cur = 40, .rlim_max = limit.rlim_max};
    const QTemporaryDir folder;
    std::vector<std::unique_ptr<FileReference>> references;
    writeFile(folder.filePath(QStringLiteral("song.mp3")), "song");
    ::setrlimit(RLIMIT_NOFILE, &few);
    for (int i = 0; i < 100; ++i)
        references.push_back(
            FileReference::referenceTo(folder.filePath(QStringLiteral("song.mp3"))));
    ::setrlimit(RLIMIT_NOFILE, &limit);
    for (const auto &reference : references)
        QCOMPARE(reference->path(), folder.filePath(QStringLiteral("song.mp3")));
}

QTEST_GUILESS_MAIN(FileReferenceTest)
#include "tst_filereference.moc"
