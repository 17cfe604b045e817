#include "gathering/httpcache.h"

#include "support/table.h"
#include "support/tempfiles.h"

#include <QDir>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace {
QUrl address(int number)
{
    return QUrl(u"http://host/%1?q=é&n=%1"_s.arg(number));
}

/// What a process that starts now finds on disk.
QByteArray onDisk(const QString &folder, int number)
{
    HttpCache cache(folder);
    return cache.response(address(number)).value_or(KeptResponse{}).data;
}

QString onlyFile(const QString &folder)
{
    const QDir files(folder);
    return files.filePath(files.entryList(QDir::Files).value(0));
}
} // namespace

class HttpCacheTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void keepsAcrossProcesses()
    {
        const QTemporaryDir folder;
        HttpCache first(folder.path());
        HttpCache second(folder.path());
        first.store(address(1), {"page", u"text/html"_s, true});
        const auto kept = second.response(address(1));
        QVERIFY(kept);
        QCOMPARE(kept->data, "page"_ba);
        QCOMPARE(kept->MIMEType, u"text/html"_s);
        QVERIFY(kept->cameInTheClear);
        first.store(address(1), {"newer", u"text/html"_s});
        QCOMPARE(onDisk(folder.path(), 1), "newer"_ba);
    }

    void dropsTheOldestBeyondItsSize()
    {
        const QTemporaryDir folder;
        const QByteArray page(3'900, 'x');
        HttpCache cache(folder.path());
        cache.setDiskCapacity(100'000);
        for (int i = 0; i < 40; ++i)
            cache.store(address(i), {page, u"text/html"_s});
        qint64 bytes = 0;
        for (const QFileInfo &file : QDir(folder.path()).entryInfoList(QDir::Files))
            bytes += file.size();
        QVERIFY2(bytes > 90'000 && bytes <= 100'000, qPrintable(QString::number(bytes)));
        QCOMPARE(onDisk(folder.path(), 15), ""_ba);
        QCOMPARE(onDisk(folder.path(), 39), page);
        // One that starts later knows what is there.
        HttpCache later(folder.path());
        later.setDiskCapacity(20'000);
        later.store(address(99), {"x", u"text/html"_s});
        QVERIFY(QDir(folder.path()).entryList(QDir::Files).size() <= 5);
        QCOMPARE(onDisk(folder.path(), 99), "x"_ba);
    }

    void aLargeAnswerIsNotKeptOnDisk()
    {
        const QTemporaryDir folder;
        HttpCache cache(folder.path());
        const QByteArray large(HttpCache::defaultDiskCapacity / 20 + 1, 'x');
        cache.store(address(1), {"small", u"text/html"_s});
        cache.store(address(1), {large, u"text/html"_s});
        QCOMPARE(cache.response(address(1)).value_or(KeptResponse{}).data, large);
        QCOMPARE(onDisk(folder.path(), 1), ""_ba);
        const QByteArray beyondMemory(HttpCache::memoryCapacity + 1, 'x');
        cache.store(address(1), {beyondMemory, u"text/html"_s});
        QVERIFY(!cache.response(address(1)));
    }

    void damagedFilesAreNotThere_data()
    {
        const Table<int, QByteArray> row("kept", "added");
        row("empty", 0, "");
        row("half a head", 12, "");
        row("cut", 60, "");
        row("longer", 1'000, "x");
        row("something else", 0, QByteArray(5'000, 'x'));
    }
    void damagedFilesAreNotThere()
    {
        QFETCH(int, kept);
        QFETCH(QByteArray, added);
        const QTemporaryDir folder;
        HttpCache(folder.path()).store(address(1), {"a page", u"text/html"_s});
        const QString file = onlyFile(folder.path());
        writeFile(file, fileContents(file).left(kept) + added);
        QVERIFY(!HttpCache(folder.path()).response(address(1)));
        QVERIFY(!QFile::exists(file));
    }

    void aFolderThatCannotBeMadeMeansMemoryOnly()
    {
        HttpCache cache(u"/proc/no/such/folder"_s);
        cache.store(address(1), {"page", u"text/html"_s});
        QCOMPARE(cache.response(address(1)).value_or(KeptResponse{}).data, "page"_ba);
    }

    void otherFilesAreLeftAlone()
    {
        const QTemporaryDir folder;
        const QString other = folder.filePath(u"notes.txt"_s);
        writeFile(other, QByteArray(5'000, 'x'));
        HttpCache cache(folder.path());
        cache.setDiskCapacity(1'000);
        cache.store(address(1), {"page", u"text/html"_s});
        QVERIFY(QFile::exists(other));
    }
};

QTEST_GUILESS_MAIN(HttpCacheTest)
#include "tst_httpcache.moc"
