#include "gathering/webdbinterface.h"

#include "base/nextturn.h"
#include "base/progress.h"
#include "support/httpserver.h"
#include "support/samplesource.h"
#include "support/table.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

/// A source of whatever a test wants fetched; it keeps what it got.
class KeepingSource : public SampleSource {
public:
    using Step = std::function<void(KeepingSource &)>;

    KeepingSource(HVHTTPQueue &queue, const Step &start, const QVariantMap &definition = {})
        : SampleSource(SiteDefinition(definition), queue, [this, start](auto &) { start(*this); })
    {
    }

    void fetch(const QUrl &url, QueueEnd at = QueueEnd::Back) { addSearchURL(url, handler(), at); }

    Handler handler()
    {
        return [this](const FetchResult &result) {
            got << result;
            if (onResult)
                onResult(*this);
        };
    }

    QList<FetchResult> got;
    Step onResult;
};

void spinEvents()
{
    for (int turn = 0; turn < 20; ++turn)
        QCoreApplication::processEvents();
}
} // namespace

class TestWebDBInterface : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        mServer = std::make_unique<HttpServer>();
        mQueue = std::make_unique<HVHTTPQueue>(QString());
        mServer->serve(u"/reset"_s, {.then = HttpAnswer::Then::Reset});
        mServer->serve(u"/empty"_s, {});
        for (const char16_t name : u"abcdefghij")
            mServer->serve(u'/' + QString(QChar(name)), {.body = "page"});
    }

    void completionIsReportedOnce_data()
    {
        using Step = KeepingSource::Step;
        const Table<int, Step, Step> row("results", "start", "onResult");
        const auto url = [this](const char *path) { return mServer->url(QLatin1String(path)); };
        const KeepingSource::Step fetchA = [url](auto &source) { source.fetch(url("/a")); };
        row("nothing to fetch", 0, [](auto &) {});
        row("no URL", 0, [](auto &source) { source.fetch(QUrl()); });
        row("a page without data", 1, [url](auto &source) { source.fetch(url("/empty")); });
        row("a failed fetch", 1, [url](auto &source) { source.fetch(url("/reset")); });
        row("an address that is never fetched", 1,
            [](auto &source) { source.fetch(QUrl(u"file:///etc/passwd"_s)); });
        row("a page leads to another", 2, fetchA, [url](auto &source) { source.fetch(url("/b")); });
        row("cancelled at once", 0, [url](auto &source) {
            source.fetch(url("/a"));
            source.cancelSearch();
        });
        row("cancelled by a page that goes on", 1, fetchA, [url](auto &source) {
            source.cancelSearch();
            source.fetch(url("/b"));
            QVERIFY(!source.postSearch(url("/b"), "x=y", source.handler()));
        });
        row("a form and the page of the same address", 2, [url](auto &source) {
            QVERIFY(source.postSearch(url("/a"), "x=y", source.handler()));
            source.fetch(url("/a"));
        });
        row("an empty form", 0,
            [url](auto &source) { QVERIFY(!source.postSearch(url("/a"), {}, source.handler())); });
        row("another wait", 0, [url](auto &source) {
            source.addPlaceholderSearch(url("/waiting"));
            onNextTurn(&source, [&source, url] { source.finishedSearch(url("/waiting")); });
        });
    }
    void completionIsReportedOnce()
    {
        QFETCH(KeepingSource::Step, start);
        QFETCH(KeepingSource::Step, onResult);
        KeepingSource source(*mQueue, start);
        source.onResult = onResult;
        complete(source);
        QTEST(int(source.got.size()), "results");
    }

    void sameURLIsFetchedOnce()
    {
        KeepingSource source(*mQueue, fetching({u"/a"_s, u"/a"_s}));
        complete(source);
        QCOMPARE(source.totalSearches(), 1);
        QCOMPARE(mServer->paths(), QStringList{u"/a"_s});
    }

    void numberOfFetchesAtATime()
    {
        for (const auto &[given, atATime] : {std::pair<QVariant, int>{u"0"_s, 8}, {2, 2}}) {
            init();
            mQueue->setSimultaneousConnections(100);
            KeepingSource source(*mQueue, fetching(u"/a /b /c /d /e /f /g /h /i /j"_s.split(u' ')),
                                 {{u"simulConns"_s, given}});
            mServer->hold();
            source.beginSearch();
            QTRY_COMPARE(mServer->requests().size(), atATime);
            mServer->release();
            QTRY_COMPARE(source.got.size(), source.totalSearches());
        }
    }

    void barMeasuresFromTheSixthSearchOn()
    {
        Progress bar;
        bar.setIndeterminate(true);
        KeepingSource source(*mQueue, [this, &bar](auto &self) {
            fetching({u"/a"_s, u"/b"_s, u"/c"_s, u"/d"_s})(self);
            self.addPlaceholderSearch(QUrl(u"wait:"_s));
            QVERIFY(bar.isIndeterminate());
            QCOMPARE(bar.maximum(), 5);
            self.fetch(mServer->url(u"/e"_s));
            QVERIFY(!bar.isIndeterminate());
            self.finishedSearch(QUrl(u"wait:"_s));
        });
        source.setProgessIndicator(&bar);
        complete(source);
        QCOMPARE(bar.maximum(), 6);
        QCOMPARE(bar.value(), 6);
    }

    void cancelStartsNothingNewAndCallsNoMethod()
    {
        KeepingSource cancelled(*mQueue, fetching({u"/a"_s, u"/b"_s}), {{u"simulConns"_s, 1}});
        KeepingSource other(*mQueue, fetching({u"/a"_s}));
        QSignalSpy complete(&cancelled, &WebDBInterface::searchComplete);
        QSignalSpy otherComplete(&other, &WebDBInterface::searchComplete);
        mServer->hold();
        cancelled.beginSearch();
        other.beginSearch();
        QTRY_COMPARE(mServer->requests().size(), 1);
        cancelled.cancelSearch();
        QCOMPARE(complete.size(), 0);
        QTRY_COMPARE(complete.size(), 1);
        QVERIFY(cancelled.wasCancelled());
        mServer->release();
        QVERIFY(otherComplete.wait());
        QVERIFY(cancelled.got.isEmpty());
        QCOMPARE(other.got.value(0).data, "page");
        QCOMPARE(mServer->paths(), QStringList{u"/a"_s});
    }

    void pagesBelow100BytesAreForgotten()
    {
        for (const int length : {99, 100}) {
            const bool isUsable = length == 100;
            const QString path = u"/%1"_s.arg(length);
            const int before = int(mServer->requests().size());
            mServer->serve(path, {.body = QByteArray(length, '\xE9')});
            for (int search = 0; search < 2; ++search) {
                KeepingSource source(*mQueue, fetching({path}));
                complete(source);
                QCOMPARE(source.usablePage(source.got.value(0)).value_or(QString()),
                         isUsable ? QString(length, u'é') : QString());
            }
            QCOMPARE(mServer->requests().size() - before, isUsable ? 1 : 2); // or from the cache
        }
    }

    void answersInJson_data()
    {
        const Table<int, QByteArray, bool, int, bool> row("status", "body", "isUsable", "requests",
                                                          "isAnswered");
        row("however short", 200, "[]", true, 1, true);
        row("no error", 200, R"({"error":null})", true, 1, true);
        row("an error in spite of the status", 200, R"({"error":{"code":4}})", false, 2, false);
        row("an error that means no data", 200, R"({"error":{"code":800}})", false, 2, true);
        row("another type", 200, "<html>", false, 2, false);
        row("cut in the middle", 200, R"({"a":[1,)", false, 2, false);
        row("nested without end", 200, QByteArray(100'000, '['), false, 2, false);
        row("no such thing", 404, "{}", false, 2, true);
    }
    void answersInJson()
    {
        QFETCH(int, status);
        QFETCH(QByteArray, body);
        const QString path = u"/json"_s; // each row has a server of its own
        mServer->serve(path, {.status = status, .body = body});
        const auto before = mServer->requests().size();
        for (int search = 0; search < 2; ++search) {
            KeepingSource source(*mQueue, fetching({path}));
            complete(source);
            QTEST(source.jsonPage(source.got.value(0)).has_value(), "isUsable");
            QTEST(!source.wasUnanswered(), "isAnswered");
        }
        QTEST(int(mServer->requests().size() - before), "requests");
    }

    void paceIsKeptAtTheHostsOfTheDefinition()
    {
        const QVariantMap definition{{u"minInterval"_s, 1000},
                                     {u"queryPOST"_s, mServer->url(u"/"_s).toString()}};
        KeepingSource source(*mQueue, fetching({u"/a"_s, u"/b"_s}), definition);
        source.beginSearch();
        QTRY_COMPARE(source.got.size(), 1);
        spinEvents();
        QCOMPARE(mServer->paths(), QStringList{u"/a"_s});
    }

    void albumsCarryTheSourceAndEndAtTheMaximum()
    {
        KeepingSource source(*mQueue, [](auto &) {});
        source.setMaxAlbums(2);
        for (const auto &name : {u"One"_s, u"Two"_s, u"Three"_s})
            source.addAlbum(AlbumInfo({}, name));
        QCOMPARE(source.albums().size(), 2);
        QCOMPARE(source.albums()[1].name(), u"Two"_s);
        QCOMPARE(source.albums()[1].sourceInterfaceName(), u"SampleSource"_s);
    }

    void searchesDoNotGoOnForEver()
    {
        KeepingSource source(*mQueue, [this](auto &self) {
            for (int i = 0; i < 5000; ++i)
                self.fetch(mServer->url(u"/%1"_s.arg(i)));
            self.cancelSearch();
        });
        complete(source);
        QCOMPARE(source.totalSearches(), 1000);
    }

    void catalogNamesWhatIsPossible()
    {
        const SourceCatalog catalog({{u"A"_s, AssetLyrics, {}}, {u"B"_s, AssetTrack, {}}});
        QVERIFY(!catalog.find(u"C"_s));
        QCOMPARE(catalog.find(u"B"_s)->className, u"B"_s);
        QCOMPARE(catalog.assetsPossibleFromSources({}).toInt(), 73U);
        QCOMPARE(catalog.assetsPossibleFromSources({u"A"_s, u"C"_s}).toInt(), 73U + 256U);
    }

private:
    /// Runs a search to its end and verifies that it says so once, and not before beginSearch() is
    /// back.
    void complete(KeepingSource &source)
    {
        QSignalSpy complete(&source, &WebDBInterface::searchComplete);
        source.beginSearch();
        QCOMPARE(complete.size(), 0);
        QTRY_COMPARE(complete.size(), 1);
        spinEvents();
        QCOMPARE(complete.size(), 1);
    }

    KeepingSource::Step fetching(const QStringList &paths)
    {
        return [this, paths](KeepingSource &source) {
            for (const QString &path : paths)
                source.fetch(mServer->url(path));
        };
    }

    std::unique_ptr<HttpServer> mServer;
    std::unique_ptr<HVHTTPQueue> mQueue;
};

QTEST_GUILESS_MAIN(TestWebDBInterface)
#include "tst_webdbinterface.moc"
