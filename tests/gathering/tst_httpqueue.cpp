#include "gathering/httpqueue.h"

#include "base/progress.h"
#include "base/texts.h"
#include "support/fakeclock.h"
#include "support/httpserver.h"
#include "support/table.h"

#include <QRegularExpression>

#include <memory>

using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;
using Then = HttpAnswer::Then;

namespace {
/// Someone who asks, and everything that was answered.
struct Asker : QObject {
    FetchCallback callback()
    {
        return [this](const FetchResult &result) { answers.append(result); };
    }
    QList<FetchResult> answers;
};

/// A server, a queue with a clock of its own, and someone who asks.
struct World {
    void add(const QString &path) { add(QStringList{path}); }
    void add(const QStringList &paths, QueueEnd at = QueueEnd::Back) { addFor(asker, paths, at); }
    void addFor(Asker &who, const QStringList &paths, QueueEnd at = QueueEnd::Back)
    {
        for (const QString &path : paths)
            queue.addURL(server.url(path), &who, who.callback(), at);
    }
    void cancel(const QString &path) { queue.cancelURL(server.url(path), &asker); }
    void head(const QUrl &url) { queue.getHeadersForURL(url, &asker, asker.callback()); }
    /// Asks and waits; -1 stands for no answer.
    FetchResult ask(const QUrl &url)
    {
        asker.answers.clear();
        queue.addURL(url, &asker, asker.callback());
        [this] { QTRY_COMPARE(asker.answers.size(), 1); }();
        return asker.answers.value(0, {.status = -1});
    }
    FetchResult ask(const QString &path) { return ask(server.url(path)); }
    bool post(const QString &path, const QByteArray &form)
    {
        return queue.postURL(server.url(path), &asker, asker.callback(), form);
    }

    FetchLimits limits{};
    OnlineCheck isOnline = [] { return true; };
    HttpServer server{};
    FakeClock clock{};
    HVHTTPQueue queue{{}, clock, nullptr, limits, isOnline};
    Asker asker{};
};

/// An address at which nobody listens.
QUrl closedPort()
{
    const HttpServer gone;
    return gone.url(u"/"_s);
}

void expectHostRemembered()
{
    static const QRegularExpression line(
        uR"(^\*\* remembering failure for 127\.0\.0\.1 \(.+\)$)"_s);
    QTest::ignoreMessage(QtWarningMsg, line);
}

int codeOf(const FetchResult &result)
{
    return result.error ? result.error->code : 0;
}

bool isURLAlone(const FetchResult &result)
{
    return result.url.isValid() && result.data.isEmpty() && !result.MIMEType && !result.error;
}

HttpAnswer redirectTo(const QByteArray &address)
{
    return {.status = 302, .headers = {"Location: " + address}};
}

const QByteArray chunked = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n";
} // namespace

class HttpQueueTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installTexts(); }

    void anyServerGetsOneAnswer_data()
    {
        const Table<HttpAnswer, int, QByteArray> row("answer", "status", "data"); // 0: failure
        row("a good one", {.body = "page"}, 200, "page");
        row("no content", {.status = 204, .claimedLength = -1}, 204, "");
        for (const int status : {404, 407, 500})
            row(qPrintable(QString::number(status)), {.status = status, .body = "sorry"}, status,
                "sorry");
        row("asks for a password",
            {.status = 401, .body = "?", .headers = {"WWW-Authenticate: Basic realm=x"}}, 401, "?");
        row("longer than it says", {.body = "hello", .claimedLength = 2}, 200, "he");
        for (const Then then : {Then::Close, Then::Reset}) {
            row("breaks off in the body", {.body = "he", .claimedLength = 5, .then = then}, 0, "");
            row("breaks off in the head", {.then = then, .raw = "HTTP/1.1 200 OK\r\nA: b"}, 0, "");
        }
        row("broken chunks end it", {.then = Then::Close, .raw = chunked + "zz\r\nab"}, 200, "");
        row("breaks off in a chunk", {.then = Then::Close, .raw = chunked + "5\r\nab"}, 0, "");
        row("packed nonsense", {.body = "no gzip", .headers = {"Content-Encoding: gzip"}}, 0, "");
        row("redirect to a file", redirectTo("file:///etc/hostname"), 0, "");
        row("redirect to itself", redirectTo("/"), 0, "");
        row("redirect to a page", redirectTo("/other"), 200, "other");
    }
    void anyServerGetsOneAnswer()
    {
        QFETCH(HttpAnswer, answer);
        QFETCH(int, status);
        World world;
        world.server.serve(u"/"_s, answer);
        world.server.serve(u"/other"_s, {.body = "other"});
        const FetchResult result = world.ask(u"/"_s);
        QCOMPARE(world.queue.numberOfRows() + world.queue.currentNumberOfConnections(), 0);
        QCOMPARE(result.url, world.server.url(u"/"_s));
        QTEST(result.data, "data");
        QCOMPARE(codeOf(result), status == 0 ? FetchError::unknown : 0);
        QCOMPARE(result.MIMEType.has_value(), status != 0);
        QVERIFY(status == 0 || result.status == status);
        QCoreApplication::processEvents();
        QCOMPARE(world.asker.answers.size(), 1);
    }

    void limitsEndALoad_data()
    {
        const Table<HttpAnswer, bool> row("answer", "isTimeOut"); // else too much
        const QByteArray much(100'000, 'x');
        row("never answers", {.delay = 1h}, true);
        row("stalls in the body", {.body = "he", .claimedLength = 5, .then = Then::Stall}, true);
        row("drips", {.body = "he", .claimedLength = -1, .then = Then::DripBody}, true);
        row("a head without end",
            {.body = much, .then = Then::RepeatBody, .raw = "HTTP/1.1 200 OK\r\nA: "}, false);
        row("endless body", {.body = much, .claimedLength = -1, .then = Then::RepeatBody}, false);
        row("a body as long as it says",
            {.body = much, .claimedLength = 2'000'000'000, .then = Then::RepeatBody}, false);
        row("a page that is not cut", {.type = "text/html", .body = much.repeated(20)}, false);
        // What qCompress puts in front of the stream is its own.
        row("little that unpacks to much",
            {.body = qCompress(much.repeated(500)).mid(4),
             .headers = {"Content-Encoding: deflate"}},
            false);
    }
    void limitsEndALoad()
    {
        QFETCH(HttpAnswer, answer);
        QFETCH(bool, isTimeOut);
        FetchLimits limits{.bodyBytes = 1'000'000, .unreadBytes = 200'000};
        if (isTimeOut) {
            limits.silence = 200ms;
            limits.total = 600ms;
            expectHostRemembered();
        }
        World world{.limits = limits};
        world.server.serve(u"/"_s, answer);
        const FetchResult result = world.ask(u"/"_s);
        QCOMPARE(codeOf(result), isTimeOut ? FetchError::timedOut : FetchError::unknown);
        QVERIFY(result.data.isEmpty());
    }

    void onlyHttpIsFetched()
    {
        for (const char *address : {"", "page", "file:///etc/hostname", "ftp://127.0.0.1/",
                                    "data:text/plain,hello", "http:///page", "http://[broken/"}) {
            World world;
            const QUrl url(QString::fromLatin1(address));
            world.head(url);
            QVERIFY(!world.queue.postURL(url, &world.asker, world.asker.callback(), "form"));
            QCOMPARE(world.queue.numberOfRows(), 0);
            QTRY_COMPARE(world.asker.answers.size(), 1);
            QCOMPARE(codeOf(world.asker.answers.first()), FetchError::unknown);
            QCOMPARE(codeOf(world.ask(url)), FetchError::unknown);
        }
    }

    void requestsSayWhoAsks()
    {
        World world;
        world.server.serve(u"/"_s, {.type = "image/png", .headers = {"Set-Cookie: id=1"}});
        QCOMPARE(world.queue.agentString(), u"Mozilla/4.0 (compatible; MSIE 6.0b; Windows 98)"_s);
        world.queue.setAgentString(u"Tagwright/1.0"_s);
        world.ask(u"/"_s);
        QVERIFY(!world.post(u"/"_s, {}));
        QVERIFY(world.post(u"/"_s, "a=1&b=%20"));
        QTRY_COMPARE(world.asker.answers.size(), 2);
        world.head(world.server.url(u"/"_s));
        QTRY_COMPARE(world.asker.answers.size(), 3);
        QCOMPARE(world.asker.answers.last().MIMEType, u"image/png"_s);
        QByteArrayList seen;
        for (const SeenRequest &request : world.server.requests()) {
            seen << request.method + ' ' + request.headers.value("content-type") + ' '
                    + request.body;
            QCOMPARE(request.headers.value("user-agent"), "Tagwright/1.0"_ba);
            QVERIFY(!request.headers.contains("referer") && !request.headers.contains("cookie"));
        }
        QCOMPARE(seen.join('|'),
                 "GET  |POST application/x-www-form-urlencoded a=1&b=%20|HEAD  "_ba);
    }

    void loadsEightAtATimeFromOneHost()
    {
        World world;
        world.server.hold();
        for (int i = 0; i < 20; ++i)
            world.add(u"/%1"_s.arg(i));
        QTRY_COMPARE(world.server.requests().size(), 8);
        QVERIFY(world.post(u"/form"_s, "x"));
        QTRY_COMPARE(world.server.requests().size(), 9);
        world.server.release();
        QTRY_COMPARE(world.asker.answers.size(), 21);
        QCOMPARE(world.server.mostAtOnce(), 9);
    }

    void frontGoesFirstThenFirstCome()
    {
        World world;
        world.server.hold();
        world.queue.setSimultaneousConnections(1);
        world.add({u"/runs"_s, u"/1"_s, u"/2"_s, u"/3"_s});
        world.add({u"/early"_s, u"/earlier"_s, u"/3"_s}, QueueEnd::Front);
        QTRY_COMPARE(world.server.requests().size(), 1);
        world.server.release();
        QTRY_COMPARE(world.asker.answers.size(), 7);
        QCOMPARE(world.server.paths(),
                 (QStringList{u"/runs"_s, u"/3"_s, u"/earlier"_s, u"/early"_s, u"/1"_s, u"/2"_s}));
    }

    void whatWaitsFailsWithItsHost()
    {
        World world;
        world.server.hold();
        for (int i = 0; i < 5'000; ++i)
            world.add(u"/%1"_s.arg(i));
        expectHostRemembered();
        world.queue.addURL(closedPort(), &world.asker, world.asker.callback(), QueueEnd::Front);
        world.server.release();
        QTRY_COMPARE(world.asker.answers.size(), 5'001);
        QCOMPARE(world.queue.numberOfRows(), 0);
    }

    void htmlAloneIsCut()
    {
        World world;
        const QByteArray much(2'000'000, 'x');
        world.server.serve(u"/page"_s, {.type = "Text/HTML; charset=utf-8", .body = much});
        world.server.serve(u"/image"_s, {.type = "image/jpeg", .body = much});
        world.queue.setMaximumHTMLLength(500'000);
        const FetchResult page = world.ask(u"/page"_s);
        QVERIFY(!page.error);
        QCOMPARE(page.MIMEType, u"text/html"_s);
        QVERIFY(page.data.size() >= 500'000 && page.data.size() < much.size());
        QCOMPARE(world.ask(u"/image"_s).data.size(), much.size());
    }

    void equalRequestsShareALoadAndFormsDoNot()
    {
        World world;
        world.server.hold();
        world.server.serve(u"/"_s, {.body = "page"});
        world.server.serve(u"/form"_s, {.echoesBody = true});
        Asker other;
        world.add(u"/"_s);
        world.addFor(other, {u"/"_s});
        world.add(u"/"_s);
        QVERIFY(world.post(u"/form"_s, "one"));
        QVERIFY(world.post(u"/form"_s, "two"));
        QCOMPARE(world.queue.numberOfRows(), 5);
        QTRY_COMPARE(world.server.requests().size(), 3);
        world.server.release();
        QTRY_COMPARE(other.answers.size(), 1);
        QCOMPARE(other.answers.first().data, "page"_ba);
        QTRY_COMPARE(world.asker.answers.size(), 4);
        QByteArrayList texts;
        for (const FetchResult &result : world.asker.answers)
            texts.append(result.data);
        std::sort(texts.begin(), texts.end());
        QCOMPARE(texts, (QByteArrayList{"one", "page", "page", "two"}));
    }

    void cancellingIsForOneOwner()
    {
        World world;
        world.server.hold();
        world.queue.setSimultaneousConnections(1);
        Asker one;
        world.add(u"/runs"_s);
        world.addFor(one, {u"/runs"_s, u"/waits"_s});
        for (const QString &path : {u"/runs"_s, u"/waits"_s})
            world.queue.cancelURL(world.server.url(path), &one);
        QTRY_COMPARE(one.answers.size(), 2);
        QVERIFY(isURLAlone(one.answers.first()) && isURLAlone(one.answers.last()));
        QTRY_COMPARE(world.server.requests().size(), 1);
        world.server.release();
        QTRY_COMPARE(world.asker.answers.size(), 1);
        QCOMPARE(world.asker.answers.first().status, 404);
        QCOMPARE(one.answers.size(), 2);
        QCOMPARE(world.server.paths(), QStringList{u"/runs"_s});
    }

    void cancelAllLeavesWhatWaits()
    {
        World world;
        world.server.hold();
        world.queue.setSimultaneousConnections(1);
        world.add({u"/runs"_s, u"/waits"_s});
        QVERIFY(world.post(u"/form"_s, "x"));
        world.queue.cancelAll();
        QTRY_COMPARE(world.asker.answers.size(), 2);
        QVERIFY(std::all_of(world.asker.answers.begin(), world.asker.answers.end(), isURLAlone));
        QCOMPARE(world.queue.statusOfRow(0), u"-Queued-"_s);
        world.server.release();
        world.add(u"/starts"_s);
        QTRY_COMPARE(world.asker.answers.size(), 4);
    }

    void answersComeLater()
    {
        World world;
        int depth = 0;
        // Cancels and asks again from inside the answer.
        const FetchCallback again = [&](const FetchResult &result) {
            QCOMPARE(depth++, 0);
            world.queue.cancelURL(result.url, &world.asker);
            world.cancel(u"/other"_s);
            world.add(u"/more"_s);
            world.cancel(u"/more"_s);
            --depth;
            world.asker.answers.append(result);
        };
        world.queue.addURL(world.server.url(u"/"_s), &world.asker, again);
        world.queue.addURL(world.server.url(u"/other"_s), &world.asker, again);
        world.cancel(u"/"_s);
        QCOMPARE(world.asker.answers.size(), 0);
        QTRY_COMPARE(world.asker.answers.size(), 4);
        QCOMPARE(world.queue.numberOfRows(), 0);
    }

    void aGoneOwnerIsNotAnswered()
    {
        World world;
        world.server.hold();
        world.queue.setSimultaneousConnections(1);
        auto goes = std::make_unique<QObject>();
        for (const QString &path : {u"/runs"_s, u"/waits"_s})
            world.queue.addURL(world.server.url(path), goes.get(), world.asker.callback());
        world.add(u"/stays"_s);
        QTRY_COMPARE(world.server.requests().size(), 1);
        goes.reset();
        world.server.release();
        QTRY_COMPARE(world.queue.numberOfRows(), 0);
        QTRY_COMPARE(world.asker.answers.size(), 1);
        QCOMPARE(world.server.paths(), (QStringList{u"/runs"_s, u"/stays"_s}));
    }

    void aGoneQueueAnswersEveryone()
    {
        HttpServer server;
        server.hold();
        auto queue = std::make_unique<HVHTTPQueue>(QString());
        Asker asker;
        for (int i = 0; i < 12; ++i)
            queue->addURL(server.url(u"/%1"_s.arg(i)), &asker, asker.callback());
        QTRY_COMPARE(server.requests().size(), 8);
        queue.reset();
        QTRY_COMPARE(asker.answers.size(), 12);
        QVERIFY(std::all_of(asker.answers.begin(), asker.answers.end(), isURLAlone));
    }

    void failedHostsAreLeftAlone()
    {
        World world; // whose server is of the same host
        for (int failure = 0; failure < 2; ++failure) {
            expectHostRemembered();
            QCOMPARE(codeOf(world.ask(closedPort())), FetchError::cannotConnectToHost);
            world.clock.advance(299s);
            QCOMPARE(codeOf(world.ask(u"/"_s)), FetchError::cannotConnectToHost);
            QVERIFY(!world.post(u"/"_s, "form"));
            QCOMPARE(world.server.requests().size(), 2 * failure);
            world.head(world.server.url(u"/"_s)); // never refused
            QTRY_COMPARE(world.asker.answers.size(), 2);
            world.clock.advance(2s);
            QCOMPARE(codeOf(world.ask(u"/"_s)), 0);
        }
    }

    void anOutageIsToldOnce()
    {
        bool isOnline = false;
        World world{.isOnline = [&] { return isOnline; }};
        QStringList lines;
        connect(&world.queue, &HVHTTPQueue::importantLog, this,
                [&](const QString &line) { lines.append(line); });
        const QUrl outOfReach(u"http://255.255.255.255/"_s);
        const FetchError error = world.ask(outOfReach).error.value_or(FetchError());
        QCOMPARE(error.code, FetchError::notConnectedToInternet);
        world.ask(outOfReach);
        QTRY_COMPARE(lines, QStringList{qtTrId("GeneralErrorPrefix") + error.localizedDescription});
        world.ask(u"/"_s);
        world.ask(outOfReach);
        QTRY_COMPARE(lines.size(), 2);
        isOnline = true;
        QCOMPARE(codeOf(world.ask(outOfReach)), FetchError::unknown);
        QCOMPARE(lines.size(), 2);
    }

    void answersAreKept()
    {
        World world;
        const QList<QByteArray> old{"Cache-Control: max-age=0, must-revalidate",
                                    "Expires: Thu, 01 Jan 1970 00:00:00 GMT"};
        world.server.serveInTurn(u"/old"_s, {{.body = "first", .headers = old}, {.body = "2nd"}});
        world.server.serve(u"/secret"_s, {.body = "x", .headers = {"Cache-Control: No-Store"}});
        QCOMPARE(world.ask(u"/old"_s).data, "first"_ba);
        QCOMPARE(world.ask(u"/old"_s).data, "first"_ba);
        QCOMPARE(world.asker.answers.first().MIMEType, u"text/plain"_s);
        QCOMPARE(world.server.requests().size(), 1);
        world.queue.removeURLFromCache(world.server.url(u"/old"_s));
        QCOMPARE(world.ask(u"/old"_s).data, "2nd"_ba);
        world.queue.addURLIgnoringCache(world.server.url(u"/old"_s), &world.asker,
                                        world.asker.callback(), 3);
        QTRY_COMPARE(world.asker.answers.size(), 2);
        for (const QString &path : {u"/missing"_s, u"/missing"_s, u"/secret"_s, u"/secret"_s})
            world.ask(path);
        QCOMPARE(world.server.requests().size(), 7);
    }

    void refusalsAreTriedAgain_data()
    {
        const Table<HttpAnswer, int, int, int, QByteArray> row("answer", "refusals", "busyPause",
                                                               "requests", "result");
        const QByteArrayList now{"Retry-After: 0"};
        const QByteArray quota = R"({"error":{"message":"Quota limit exceeded","code":4}})";
        const QByteArray none = R"({"error":{"message":"no data","code":800}})";
        row("three times", {.status = 503, .headers = now}, 3, 0, 4, "");
        row("not a fourth time", {.status = 429, .body = "no", .headers = now}, 9, 0, 4, "no");
        row("a longer wait is cut", {.status = 429, .headers = {"Retry-After: 3600"}}, 1, 0, 2, "");
        row("nobody asked to come back", {.status = 503, .body = "no"}, 1, 0, 1, "no");
        row("nobody said when", {.status = 503}, 1, 5, 2, "");
        row("other statuses are final", {.status = 500, .body = "no", .headers = now}, 1, 5, 1,
            "no");
        row("a quota by the status 200", {.body = quota}, 3, 5, 4, "");
        row("busy in words by the status 200", {.body = R"({"error": "busy"})"}, 1, 5, 2, "");
        row("where nothing is known of such answers", {.body = quota}, 1, 0, 1, quota);
        row("an error that does not pass", {.body = none}, 1, 5, 1, none);
    }
    void refusalsAreTriedAgain()
    {
        QFETCH(HttpAnswer, answer);
        QFETCH(int, refusals);
        QFETCH(int, busyPause);
        QList<HttpAnswer> answers(refusals, answer);
        answers.append(HttpAnswer{.echoesBody = true});
        World world{.limits = {.retryWait = 10ms}};
        world.queue.setManners(u"127.0.0.1"_s, {.busyPause = std::chrono::milliseconds(busyPause)});
        world.server.serveInTurn(u"/"_s, answers);
        world.server.serveInTurn(u"/form"_s, answers);
        QTEST(world.ask(u"/"_s).data, "result");
        QTEST(static_cast<int>(world.server.requests().size()), "requests");
        QVERIFY(world.post(u"/form"_s, "form"));
        QTRY_COMPARE(world.asker.answers.size(), 2);
        QCOMPARE(world.server.requests().last().body, "form"_ba);
    }

    void aHostsPaceIsKept()
    {
        World world;
        world.queue.setManners(u"127.0.0.1"_s, {.minInterval = 20ms}, u"A"_s);
        world.queue.setManners(u"127.0.0.1"_s, {.patience = 9s},
                               u"B"_s); // names no pace of its own
        world.add({u"/1"_s, u"/2"_s, u"/3"_s});
        QVERIFY(world.post(u"/form"_s, "x"));
        for (int answered = 1; answered <= 4; ++answered) {
            QTRY_COMPARE(world.asker.answers.size(), answered);
            QCOMPARE(world.queue.currentNumberOfConnections(), 0);
            world.clock.advance(20ms);
        }
        QCOMPARE(world.server.paths(), (QStringList{u"/1"_s, u"/form"_s, u"/2"_s, u"/3"_s}));
    }

    void aHostsMannersAreKept()
    {
        World world{.limits = {.silence = 1ms, .retryPause = 50ms}};
        world.queue.setManners(u"127.0.0.1"_s, {100ms, 5s, u"Program/1 ( a@b )"_s});
        world.server.serve(u"/slow"_s, {.body = "at last", .delay = 50ms});
        QCOMPARE(world.ask(u"/slow"_s).data, "at last"_ba);
        QCOMPARE(world.server.requests()[0].headers["user-agent"], "Program/1 ( a@b )"_ba);
        // A redirect waits for its turn, and a refusal holds everyone up and blames nobody.
        world.clock.advance(100ms);
        world.server.serve(u"/merged"_s, {.status = 301, .headers = {"Location: /other"}});
        world.server.serve(u"/other"_s, {.body = "found"});
        QElapsedTimer time;
        time.start();
        QCOMPARE(world.ask(u"/merged"_s).data, "found"_ba);
        QVERIFY(time.elapsed() >= 100);
        world.clock.advance(200ms);
        world.server.serveInTurn(u"/busy"_s,
                                 {{.status = 503, .headers = {"Retry-After: 0"}}, {.body = "ok"}});
        time.start();
        world.add(u"/busy"_s);
        QTRY_COMPARE(world.server.requests().size(), 4);
        QTest::qWait(60);
        world.clock.advance(100ms);
        QTRY_COMPARE(world.asker.answers.size(), 2);
        QCOMPARE(world.asker.answers.last().data, "ok"_ba);
        QVERIFY(time.elapsed() >= 100);
    }

    void aRedirectDoesNotWaitForEver()
    {
        expectHostRemembered();
        World world{.limits = {.total = 50ms}};
        world.queue.setManners(u"127.0.0.1"_s, {.minInterval = 1h});
        world.server.serve(u"/"_s, {.status = 301, .headers = {"Location: /other"}});
        QCOMPARE(codeOf(world.ask(u"/"_s)), FetchError::timedOut);
    }

    void rowsAndIndicatorFollowTheLoad()
    {
        World world;
        world.server.serve(u"/"_s, {.body = "12345", .claimedLength = 10, .then = Then::Stall});
        world.queue.setSimultaneousConnections(1);
        Progress indicator;
        world.queue.addURLUsingIndicator(world.server.url(u"/"_s), &world.asker,
                                         world.asker.callback(), &indicator);
        world.add(u"/next"_s);
        QVERIFY(indicator.isIndeterminate());
        QCOMPARE(world.queue.statusOfRow(0), u"-Wait-"_s);
        QCOMPARE(world.queue.statusOfRow(1), u"-Queued-"_s);
        QTRY_COMPARE(world.queue.statusOfRow(0), u"5 bytes"_s);
        QVERIFY(!indicator.isIndeterminate());
        QCOMPARE(indicator.maximum(), 10.0);
        QCOMPARE(indicator.value(), 5.0);
    }
};

QTEST_GUILESS_MAIN(HttpQueueTest)
#include "tst_httpqueue.moc"
