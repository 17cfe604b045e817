#include "base/progress.h"
#include "base/texts.h"
#include "gathering/sourcesearches.h"
#include "support/fakeclock.h"
#include "support/httpserver.h"
#include "support/samplesource.h"
#include "support/table.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// The network library by itself asks a host again that hung up, and how often is up to it.
constexpr int asOftenAsTheLibrary = -1;

const QByteArray challenge = "<title>Just a moment...</title>";
} // namespace

class TestSourceOutages : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installTexts(); }
    void init()
    {
        mServer = std::make_unique<HttpServer>();
        mQueue = std::make_unique<HVHTTPQueue>(
            QString(), mClock, nullptr,
            FetchLimits{.silence = 100ms, .total = 200ms, .retryWait = 1ms});
        mOutages.clear();
    }

    void answersAreToldFromSilence_data()
    {
        using Then = HttpAnswer::Then;
        const Table<HttpAnswer, bool, int> row("answer", "isUnanswered", "requests");
        const QList<QByteArray> again{"Retry-After: 0"};

        row("an album", {.body = "album"}, false, 1);
        row("nothing of use", {.body = "\x7f garbage"}, false, 1);
        row("an empty page", {}, false, 1);
        row("no such page", {.status = 404}, false, 1);
        row("an address that is not fetched",
            {.status = 302, .headers = {"Location: file:///etc/passwd"}}, false, 1);
        row("down for ever", {.status = 503, .headers = again}, true, 4);
        row("busy for ever", {.status = 429, .headers = again}, true, 4);
        row("its server fails", {.status = 500, .body = "<html>"}, true, 1);
        row("it lets us not in", {.status = 403}, true, 1);
        row("it asks whether we are a person", {.type = "text/html", .body = challenge}, true, 1);
        row("it hangs up", {.then = Then::Reset, .raw = "HTTP/1.1 2"}, true, asOftenAsTheLibrary);
        row("it hangs up on a page that it began",
            {.body = "begun", .claimedLength = 1000, .then = Then::Reset}, true, 1);
        row("silence", {.delay = 10s}, true, 1);
        row("it drips", {.body = "x", .claimedLength = 1000, .then = Then::DripBody}, true, 1);
    }
    void answersAreToldFromSilence()
    {
        QFETCH(HttpAnswer, answer);
        mServer->serve(u"/page"_s, answer);
        search();
        QTEST(!mUnasked.isEmpty(), "isUnanswered");
        QFETCH(int, requests);
        if (requests != asOftenAsTheLibrary)
            QCOMPARE(mServer->requests().size(), requests);
        QCOMPARE(mFound, answer.body == "album" ? 1 : 0);
    }

    void aRefusedConnectionIsNoAnswer()
    {
        mServer->close();
        search();
        QCOMPARE(mUnasked, (QList<UnaskedSource>{{u"PageSource"_s, AssetYear}}));
    }

    void aPageThatAsksForAPersonIsAskedForAgain()
    {
        mServer->serveInTurn(u"/page"_s,
                             {{.type = "text/html", .body = challenge}, {.body = "album"}});
        search();
        search();
        QCOMPARE(mFound, 1);
    }

    void aSourceWithoutAnswersIsLeftAloneForLongerAndLonger()
    {
        mServer->serve(u"/page"_s, {.status = 503});
        for (int songs = 0; songs < 20; ++songs)
            search();
        QCOMPARE(mServer->requests().size(), SourceOutages::mostUnanswered);
        QVERIFY(!mUnasked.isEmpty());
        QCOMPARE(mOutages.marked(), QSet<QString>{u"PageSource"_s});
        for (const auto &[passed, requests] :
             {std::pair(299s, 3), {2s, 4}, {301s, 4}, {299s, 5}, {1199s, 5}, {2s, 6}}) {
            mClock.advance(passed);
            search();
            QCOMPARE(mServer->requests().size(), requests);
        }
        mServer->serve(u"/page"_s, {.body = "album"});
        mClock.advance(3h);
        for (int songs = 0; songs < 3; ++songs)
            search();
        QVERIFY(mUnasked.isEmpty());
        mServer->serve(u"/other"_s, {.status = 503}); // one failure after answers is but one
        search(u"/other"_s);
        search();
        QVERIFY(mUnasked.isEmpty());
    }

private:
    /// One song that lacks its year.
    void search(const QString &page = u"/page"_s)
    {
        const SiteDefinitions definitions(QVariantMap{
            {u"res_PageSource"_s, QVariantMap{{u"page"_s, mServer->url(page).toString()}}}});
        Progress progress;
        SourceSearches searches(mCatalog, definitions, *mQueue, mOutages, progress);
        SearchRequest request;
        request.desired = AssetYear;
        mFound = 0;
        searches.start(u"PageSource"_s, request,
                       [this](const AlbumList &albums, const SourceAnswer &, const auto &) {
                           mFound = static_cast<int>(albums.size());
                       });
        QTRY_VERIFY(!searches.anyRunning());
        mUnasked = searches.unaskedOf({u"PageSource"_s, u"Another"_s}, AssetYear);
        QVERIFY(searches.unaskedOf({u"PageSource"_s}, AssetLyrics).isEmpty());
    }

    /// One page for each search, with the name of an album on it.
    const SourceCatalog mCatalog{{SampleSource::entry(
        u"PageSource"_s, Assets(AssetAlbumName) | AssetYear, [](SampleSource &source) {
            const QUrl page(source.resources().textOrEmpty(u"page"_s));
            source.addSearchURL(page, [&source](const FetchResult &result) {
                if (result.data.startsWith("album"))
                    source.addAlbum(AlbumInfo(source.artist(), u"Night"_s));
            });
        })}};
    FakeClock mClock;
    SourceOutages mOutages{mClock};
    std::unique_ptr<HttpServer> mServer;
    std::unique_ptr<HVHTTPQueue> mQueue;
    QList<UnaskedSource> mUnasked;
    int mFound = 0;
};

QTEST_GUILESS_MAIN(TestSourceOutages)
#include "tst_sourceoutages.moc"
