#include "demo/samplesites.h"

#include "base/nextturn.h"
#include "base/propertylist.h"
#include "base/resources.h"
#include "base/texts.h"
#include "gathering/librarylending.h"
#include "gathering/songinfotask.h"
#include "sources/builtinsources.h"
#include "support/httpserver.h"
#include "support/songs.h"
#include "support/songscene.h"
#include "support/table.h"

#include <QSignalSpy>

#include <limits>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using Then = HttpAnswer::Then;

namespace {

/// Forgives every host at once, so that each request meets its fault.
class HastyClock : public Clock {
public:
    [[nodiscard]] Time now() const override { return mNow += 301s; }

private:
    mutable Time mNow = std::chrono::system_clock::now();
};

/// Every marker that a definition looks for, in the order of their keys.
QByteArray markersOf(const QVariant &value)
{
    if (value.typeId() == QMetaType::QString)
        return value.toString().replace(u"%@"_s, u"1"_s).replace(u"%d"_s, u"1"_s).toLatin1();
    QByteArray markers;
    for (const QVariant &each : value.toMap())
        markers += markersOf(each);
    return markers;
}

/// Eight fetches, eight that took their places while the sources were cancelled one by one, and
/// a form that is posted beside them.
constexpr int mostUnderWay = 17;

/// The song of which every site knows something, its sources, and the sites on a server that
/// misbehaves.
struct World {
    World()
        : song(writtenSong(
            folder.filePath(u"song.mp3"_s),
            {.title = u"Low Water"_s, .artist = u"Nila Oster"_s, .album = u"Harbour Lights"_s}))
    {
    }

    /// Each site gives so many good pages, then the fault, in which the request's number stands
    /// for "%n".
    void misbehave(HttpAnswer fault, int goodPages)
    {
        const QByteArray body = fault.body;
        server.serveBy([=, this](const SeenRequest &request) mutable {
            fault.body = QByteArray(body).replace("%n", QByteArray::number(++requests));
            if (requests == cancelAt)
                onNextTurn(&server, cancel);
            const QString site = request.path.section(u'/', 1, 1);
            if (++pagesOf[site] > goodPages)
                return fault;
            const auto page = samplePageAt(server.url(request.path), request.body);
            return page ? HttpAnswer{.type = page->mimeType, .body = page->body}
                        : HttpAnswer{.status = 404};
        });
    }

    QTemporaryDir folder;
    HttpServer server;
    FetchLimits limits{.silence = 150ms,
                       .total = 400ms,
                       .retryWait = 1ms,
                       .bodyBytes = 300'000,
                       .unreadBytes = 100'000};
    HastyClock clock;
    HVHTTPQueue queue{QString(), clock, nullptr, limits, [] { return true; }};
    SourceCatalog catalog = builtInSources();
    std::shared_ptr<SongFile> song;
    LibraryLending library{{song}};
    QHash<QString, int> pagesOf;
    int requests = 0;
    int cancelAt = -1; ///< the request on which follows:
    std::function<void()> cancel;
};

} // namespace

class AllSourcesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        installTexts();
        const auto builtIn = PropertyList::parse(resourceData(u"defaultres.xml"_s).value());
        mDefaults = SiteDefinitions(builtIn.value.toMap());
    }

    void everyTaskEndsOnce_data()
    {
        const Table<HttpAnswer, int, int> table("fault", "goodPages", "cancelAt"); // -1: never
        const auto add = [&](const QString &name, const HttpAnswer &fault) {
            for (const int goodPages : {0, 1, 3})
                table(qPrintable(name + u" after %1 good pages"_s.arg(goodPages)), fault, goodPages,
                      -1);
            for (const int cancelAt : {1, 8})
                table(qPrintable(name + u", cancelled at request %1"_s.arg(cancelAt)), fault, 1,
                      cancelAt);
        };
        const QByteArray html = "text/html";
        add(u"nothing"_s, {});
        add(u"reset"_s, {.then = Then::Reset});
        add(u"stall"_s, {.then = Then::Stall, .raw = "HTTP/1.1 200 OK\r\nA: b"});
        add(u"stalled body"_s, {.body = "<html>", .claimedLength = 9000, .then = Then::Stall});
        add(u"garbage"_s, {.type = html, .body = noise(5000, 7)});
        add(u"markers in any order"_s,
            {.type = html, .body = markersOf(mDefaults.values()).repeated(3)});
        add(u"results that go on for ever"_s,
            {.type = html,
             .body = R"(<table class="results"><tr><td>a</td><td>b</td></tr></table>)"
                     R"(<a class="next" href="next%n"></a> )"
                     R"(<p class="pages"><a href="page/%n">more</a></p>)"});
        add(u"redirects in a circle"_s, {.status = 302, .headers = {"Location: /again"}});
        add(u"a body without end"_s,
            {.body = QByteArray(20'000, '<'), .claimedLength = -1, .then = Then::RepeatBody});
        add(u"says more than comes"_s,
            {.body = "<html>", .claimedLength = 9000, .then = Then::Close});
        add(u"says less than comes"_s, {.body = QByteArray(9000, '<'), .claimedLength = 7});
        add(u"says more than is taken"_s, {.body = "<", .claimedLength = qint64(1) << 62});
        for (const int status : {429, 500, 503})
            add(QString::number(status), {.status = status, .headers = {"Retry-After: 9"}});
    }
    void everyTaskEndsOnce()
    {
        QFETCH(HttpAnswer, fault);
        QFETCH(int, goodPages);
        QFETCH(int, cancelAt);
        const Quiet quiet;
        World world;
        world.misbehave(fault, goodPages);
        GatherContext context{world.queue, world.catalog,
                              sampleDefinitions(mDefaults, world.server.url({}).toString()),
                              world.library};
        Assets wanted;
        SongInfoTask task(world.song, context);
        task.setParallelMode(true);
        task.setAlbumSelectionMethod(AlbumPick::EarliestYear);
        for (const AssetName &name : assetNames)
            wanted |= name.asset;
        task.setGatherFlags(wanted);
        int requestsAtMost = std::numeric_limits<int>::max();
        world.cancel = [&] {
            task.cancel();
            requestsAtMost = world.requests + mostUnderWay;
        };
        world.cancelAt = cancelAt;
        QSignalSpy finished(&task, &SongInfoTask::finished);
        task.gather();
        QVERIFY(!finished.isEmpty() || finished.wait(15'000));
        QTest::qWait(20); // a second end would come soon
        QCOMPARE(finished.size(), 1);
        QVERIFY(world.requests <= requestsAtMost);
        // A reset may meet a request on its way.
        if (goodPages == 0 && fault.then != Then::Reset)
            for (const SampleSite &site : sampleSites())
                QVERIFY2(world.pagesOf.contains(site.className), qPrintable(site.className));
        QCOMPARE(world.queue.numberOfRows() + world.queue.currentNumberOfConnections(), 0);
    }

private:
    SiteDefinitions mDefaults;
};

QTEST_GUILESS_MAIN(AllSourcesTest)

#include "tst_allsources.moc"
