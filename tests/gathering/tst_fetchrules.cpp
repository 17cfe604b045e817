#include "gathering/cleartext.h"
#include "gathering/fetcherrors.h"
#include "gathering/hostpace.h"
#include "gathering/httpcache.h"
#include "gathering/retryafter.h"
#include "support/fakeclock.h"
#include "support/table.h"
#include "support/tempfiles.h"

using namespace std::chrono_literals;
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

} // namespace

/// The rules by which the queue decides and what it keeps, without a network.
class FetchRulesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void errorsHaveCodes()
    {
        using Error = QNetworkReply::NetworkError;
        for (const auto &[error, online, offline] : {std::tuple{Error::TimeoutError, -1001, -1001},
                                                     {Error::HostNotFoundError, -1003, -1009},
                                                     {Error::ConnectionRefusedError, -1004, -1004},
                                                     {Error::UnknownNetworkError, -1, -1009},
                                                     {Error::SslHandshakeFailedError, -1, -1}}) {
            QCOMPARE(fetchErrorFor(error, u"why"_s, true).code, online);
            QCOMPARE(fetchErrorFor(error, u"why"_s, false).code, offline);
            QCOMPARE(fetchErrorFor(error, u"why"_s, true).localizedDescription, u"why"_s);
        }
    }

    void othersCanReadWhatIsNeitherHttpsNorHere()
    {
        for (const auto &[url, isClear] : {std::pair{"https://a.example/", false},
                                           {"http://a.example/", true},
                                           {"http://127.0.0.1:8/", false},
                                           {"http://[::1]/", false},
                                           {"http://localhost/", false},
                                           {"http://127.0.0.1.a.example/", true},
                                           {"http://localhost.a.example/", true}})
            QVERIFY2(isInTheClear(QUrl(QLatin1String(url))) == isClear, url);
    }

    void retryAfterIsRead()
    {
        const Clock::Time now{784'111'740s}; // 1994-11-06 08:49:00 UTC
        using Wait = std::optional<std::chrono::milliseconds>;
        for (const auto &[header, wait] : {std::pair<const char *, Wait>{"30", 30s},
                                           {"-5", 0s},
                                           {"9999999999999", 24h},
                                           {"Sun, 06 Nov 1994 08:49:37 GMT", 37s},
                                           {"Sun Nov  6 08:49:37 1994", 37s},
                                           {"Sun, 06 Nov 1994 08:00:00 GMT", 0s},
                                           {"", {}},
                                           {"soon", {}}})
            QVERIFY2(retryAfter(header, now) == wait, header);
    }

    void hostsHaveAPace()
    {
        FakeClock clock;
        HostPace pace(clock);
        pace.noteBegin(u"host"_s);
        QCOMPARE(pace.timeToWait(u"host"_s), 0ms);
        pace.setMinInterval(u"host"_s, 2s);
        pace.noteBegin(u"host"_s);
        clock.advance(500ms);
        QCOMPARE(pace.timeToWait(u"host"_s), 1500ms);
        QCOMPARE(pace.timeToWait(u"other"_s), 0ms);
        QCOMPARE(pace.takeTurn(u"host"_s), 1500ms); // as a redirect does
        QCOMPARE(pace.timeToWait(u"host"_s), 3500ms);
        pace.holdFor(u"host"_s, 5s);
        pace.holdFor(u"host"_s, 4s);
        QCOMPARE(pace.timeToWait(u"host"_s), 5000ms);
        clock.advance(-1h); // set back
        QCOMPARE(pace.timeToWait(u"host"_s), 2000ms);
        clock.advance(2h);
        QCOMPARE(pace.timeToWait(u"host"_s), 0ms);
    }

    void keepsAcrossProcesses()
    {
        const QTemporaryDir folder;
        HttpCache first(folder.path());
        HttpCache second(folder.path());
        first.store(address(1), {"page", u"text/html"_s, true});
        const KeptResponse kept = second.response(address(1)).value_or(KeptResponse{});
        QVERIFY(kept.data == "page" && kept.MIMEType == u"text/html" && kept.cameInTheClear);
        first.store(address(1), {"newer", u"text/html"_s});
        QCOMPARE(onDisk(folder.path(), 1), "newer"_ba);
        first.removeFromDisk(address(1));
        QVERIFY(first.response(address(1)));
        QCOMPARE(onDisk(folder.path(), 1), ""_ba);
    }

    void dropsTheOldestBeyondItsSize()
    {
        const QTemporaryDir folder;
        const QString other = folder.filePath(u"notes.txt"_s); // somebody else's
        writeFile(other, "precious");
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
        QVERIFY(QDir(folder.path()).entryList(QDir::Files).size() <= 6);
        QVERIFY(QFile::exists(other));
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

    void damagedFilesAreNotThere()
    {
        // Half a head; cut; longer; something else.
        for (const auto &[kept, added] :
             {std::pair{12, ""_ba}, {60, ""_ba}, {1'000, "x"_ba}, {0, QByteArray(5'000, 'x')}}) {
            const QTemporaryDir folder;
            HttpCache(folder.path()).store(address(1), {"a page", u"text/html"_s});
            const QString file = QDir(folder.path()).entryInfoList(QDir::Files).value(0).filePath();
            writeFile(file, fileContents(file).left(kept) + added);
            QVERIFY(!HttpCache(folder.path()).response(address(1)));
            QVERIFY(!QFile::exists(file));
        }
    }

    void aFolderThatCannotBeMadeMeansMemoryOnly()
    {
        HttpCache cache(u"/proc/no/such/folder"_s);
        cache.store(address(1), {"page", u"text/html"_s});
        QVERIFY(cache.response(address(1)));
    }
};

QTEST_GUILESS_MAIN(FetchRulesTest)
#include "tst_fetchrules.moc"
