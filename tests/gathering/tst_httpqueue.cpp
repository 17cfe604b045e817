#include "gathering/httpqueue.h"

#include "base/progress.h"
#include "base/texts.h"
#include "support/fakeclock.h"
#include "support/httpserver.h"

#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

namespace {
/// Someone who asks, and everything that was answered.
struct Asker : QObject {
    FetchCallback callback()
    {
        return [this](const FetchResult &result) { answers.append(result); };
    }
    QList<FetchResult> answers;
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

bool isURLAlone(const FetchResult &result)
{
    return result.url.isValid() && result.data.isEmpty() && !result.MIMEType && !result.error;
}

constexpr FetchLimits impatient{.silence = 200ms, .headSilence = 200ms, .total = 600ms};
} // namespace

class HttpQueueTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void anyServerGetsOneAnswer_data();
    void anyServerGetsOneAnswer();
    void limitsEndALoad_data();
    void limitsEndALoad();
    void onlyHttpIsFetched_data();
    void onlyHttpIsFetched();

    void requestsSayWhoAsks();
    void loadsEightAtATimeFromOneHost();
    void frontGoesFirstThenFirstCome();
    void tenThousandWait();
    void htmlAloneIsCut();
    void headGivesTheTypeAlone();

    void equalRequestsShareALoad();
    void formsToOneAddressStayApart();
    void cancellingIsForOneOwner();
    void cancelAllLeavesWhatWaits();
    void answersComeLater();
    void aGoneOwnerIsNotAnswered();
    void aGoneQueueAnswersEveryone();

    void failedHostsAreLeftAlone();
    void anOutageIsToldOnce();
    void answersAreKept();
    void refusalsAreTriedAgain_data();
    void refusalsAreTriedAgain();
    void aHostsPaceIsKept();
    void rowsAndIndicatorFollowTheLoad();
};

void HttpQueueTest::initTestCase()
{
    installTexts();
}

void HttpQueueTest::anyServerGetsOneAnswer_data()
{
    using Then = HttpAnswer::Then;
    QTest::addColumn<HttpAnswer>("answer");
    QTest::addColumn<int>("status"); // 0: a failure with code -1
    QTest::addColumn<QByteArray>("data");

    QTest::newRow("a good one") << HttpAnswer{.body = "page"} << 200 << "page"_ba;
    QTest::newRow("nothing in it") << HttpAnswer{} << 200 << ""_ba;
    QTest::newRow("no content") << HttpAnswer{.status = 204, .claimedLength = -1} << 204 << ""_ba;
    QTest::newRow("length unknown")
        << HttpAnswer{.body = "page", .claimedLength = -1, .then = Then::Close} << 200 << "page"_ba;
    for (const int status : {400, 401, 404, 407, 410, 418, 500, 502, 503}) {
        QTest::addRow("status %d comes with its page", status)
            << HttpAnswer{.status = status, .body = "sorry"} << status << "sorry"_ba;
    }
    QTest::newRow("asks for a password")
        << HttpAnswer{.status = 401, .body = "who?", .headers = {"WWW-Authenticate: Basic realm=x"}}
        << 401 << "who?"_ba;
    QTest::newRow("longer than it says")
        << HttpAnswer{.body = "hello", .claimedLength = 2} << 200 << "he"_ba;
    QTest::newRow("shorter than it says")
        << HttpAnswer{.body = "he", .claimedLength = 5, .then = Then::Close} << 0 << ""_ba;
    QTest::newRow("reset within the body")
        << HttpAnswer{.body = "he", .claimedLength = 5, .then = Then::Reset} << 0 << ""_ba;
    QTest::newRow("reset within the head")
        << HttpAnswer{.then = Then::Reset, .raw = "HTTP/1.1 2"} << 0 << ""_ba;
    QTest::newRow("closed within the head")
        << HttpAnswer{.then = Then::Close, .raw = "HTTP/1.1 200 OK\r\nA: b\r\n"} << 0 << ""_ba;
    QTest::newRow("another protocol")
        << HttpAnswer{.then = Then::Close, .raw = "220 mail ready\r\n\r\n"} << 0 << ""_ba;
    QTest::newRow("bytes that mean nothing")
        << HttpAnswer{.then = Then::Close, .raw = QByteArray(5000, '\xff')} << 0 << ""_ba;
    QTest::newRow("broken chunks end the body")
        << HttpAnswer{.then = Then::Close,
                      .raw = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nzz\r\nab"}
        << 200 << ""_ba;
    QTest::newRow("closed within a chunk")
        << HttpAnswer{.then = Then::Close,
                      .raw = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n5\r\nab"}
        << 0 << ""_ba;
    QTest::newRow("compressed nonsense")
        << HttpAnswer{.body = "no gzip", .headers = {"Content-Encoding: gzip"}} << 0 << ""_ba;
    QTest::newRow("redirect to a file")
        << HttpAnswer{.status = 302, .headers = {"Location: file:///etc/hostname"}} << 0 << ""_ba;
    QTest::newRow("redirect to ftp")
        << HttpAnswer{.status = 301, .headers = {"Location: ftp://127.0.0.1/"}} << 0 << ""_ba;
    QTest::newRow("redirect to itself")
        << HttpAnswer{.status = 302, .headers = {"Location: /"}} << 0 << ""_ba;
    QTest::newRow("redirect to nowhere") << HttpAnswer{.status = 302} << 302 << ""_ba;
    QTest::newRow("redirect to a page")
        << HttpAnswer{.status = 302, .body = "moved", .headers = {"Location: /other"}} << 200
        << "other"_ba;
}

void HttpQueueTest::anyServerGetsOneAnswer()
{
    QFETCH(HttpAnswer, answer);
    QFETCH(int, status);
    HttpServer server;
    server.serve(u"/"_s, answer);
    server.serve(u"/other"_s, {.body = "other"});
    Asker asker;
    {
        HVHTTPQueue queue({});
        queue.addURL(server.url(u"/"_s), &asker, asker.callback());
        QTRY_COMPARE(asker.answers.size(), 1);
        QCOMPARE(queue.numberOfRows(), 0);
        QCOMPARE(queue.currentNumberOfConnections(), 0);
    }
    QCoreApplication::processEvents();
    QCOMPARE(asker.answers.size(), 1);
    const FetchResult &result = asker.answers.first();
    QCOMPARE(result.url, server.url(u"/"_s));
    QTEST(result.data, "data");
    QCOMPARE(result.error.has_value(), status == 0);
    QCOMPARE(result.MIMEType.has_value(), status != 0);
    if (result.error)
        QCOMPARE(result.error->code, FetchError::unknown);
    else
        QCOMPARE(result.status, status);
    QVERIFY(!result.error || !result.error->localizedDescription.isEmpty());
}

void HttpQueueTest::limitsEndALoad_data()
{
    using Then = HttpAnswer::Then;
    QTest::addColumn<HttpAnswer>("answer");
    QTest::addColumn<int>("code");
    constexpr int tooLong = FetchError::unknown;

    QTest::newRow("never answers") << HttpAnswer{.delay = 1h} << FetchError::timedOut;
    QTest::newRow("stalls in the head")
        << HttpAnswer{.then = Then::Stall, .raw = "HTTP/1.1 200"} << FetchError::timedOut;
    QTest::newRow("stalls in the body")
        << HttpAnswer{.body = "he", .claimedLength = 5, .then = Then::Stall}
        << FetchError::timedOut;
    QTest::newRow("drips for ever")
        << HttpAnswer{.body = "he", .claimedLength = -1, .then = Then::DripBody}
        << FetchError::timedOut;
    QTest::newRow("a head without end") << HttpAnswer{.body = "X-More: and more\r\n",
                                                      .then = Then::RepeatBody,
                                                      .raw = "HTTP/1.1 200 OK\r\n"}
                                        << FetchError::timedOut;
    QTest::newRow("a body without end") << HttpAnswer{.body = QByteArray(100'000, 'x'),
                                                      .claimedLength = -1,
                                                      .then = Then::RepeatBody}
                                        << tooLong;
    QTest::newRow("a body as long as it says, but too long")
        << HttpAnswer{.body = QByteArray(100'000, 'x'),
                      .claimedLength = 2'000'000'000,
                      .then = Then::RepeatBody}
        << tooLong;
    QTest::newRow("a page is no exception where pages are not cut")
        << HttpAnswer{.type = "text/html", .body = QByteArray(2'000'000, 'x')} << tooLong;
    // What qCompress puts in front of the stream is its own.
    QTest::newRow("little that unpacks to much")
        << HttpAnswer{.body = qCompress(QByteArray(50'000'000, 'x')).mid(4),
                      .headers = {"Content-Encoding: deflate"}}
        << tooLong;
}

void HttpQueueTest::limitsEndALoad()
{
    QFETCH(HttpAnswer, answer);
    HttpServer server;
    server.serve(u"/"_s, answer);
    FetchLimits limits = impatient;
    limits.bodyBytes = 1'000'000;
    HVHTTPQueue queue({}, systemClock(), nullptr, limits);
    Asker asker;
    QFETCH(int, code);
    if (code == FetchError::timedOut)
        expectHostRemembered();
    queue.addURL(server.url(u"/"_s), &asker, asker.callback());
    QTRY_COMPARE(asker.answers.size(), 1);
    QVERIFY(asker.answers.first().error);
    QCOMPARE(asker.answers.first().error->code, code);
    QVERIFY(asker.answers.first().data.isEmpty());
}

void HttpQueueTest::onlyHttpIsFetched_data()
{
    QTest::addColumn<QString>("address");
    for (const char *address :
         {"", "page", "file:///etc/hostname", "ftp://127.0.0.1/", "qrc:/texts/tagwright_en.qm",
          "data:text/plain,hello", "javascript:alert(1)", "http:///page", "http://[broken/"})
        QTest::newRow(address) << QString::fromLatin1(address);
}

void HttpQueueTest::onlyHttpIsFetched()
{
    QFETCH(QString, address);
    HVHTTPQueue queue({});
    Asker asker;
    queue.addURL(QUrl(address), &asker, asker.callback());
    queue.getHeadersForURL(QUrl(address), &asker, asker.callback());
    QVERIFY(!queue.postURL(QUrl(address), &asker, asker.callback(), "form"));
    QCOMPARE(queue.numberOfRows(), 0);
    QCOMPARE(asker.answers.size(), 0);
    QTRY_COMPARE(asker.answers.size(), 2);
    for (const FetchResult &result : asker.answers) {
        QCOMPARE(result.error.value_or(FetchError{0, {}}).code, FetchError::unknown);
        QVERIFY(result.data.isEmpty());
    }
}

void HttpQueueTest::requestsSayWhoAsks()
{
    HttpServer server;
    server.serve(u"/"_s, {.body = "page", .headers = {"Set-Cookie: id=1"}});
    HVHTTPQueue queue({});
    QCOMPARE(queue.agentString(), u"Mozilla/4.0 (compatible; MSIE 6.0b; Windows 98)"_s);
    queue.setAgentString(u"Tagwright/1.0 (like Safari/Gecko)"_s);
    Asker asker;
    queue.addURL(server.url(u"/"_s), &asker, asker.callback());
    QTRY_COMPARE(asker.answers.size(), 1);
    QVERIFY(queue.postURL(server.url(u"/"_s), &asker, asker.callback(), "a=1&b=%20"));
    QTRY_COMPARE(asker.answers.size(), 2);
    queue.getHeadersForURL(server.url(u"/"_s), &asker, asker.callback());
    QTRY_COMPARE(asker.answers.size(), 3);

    QList<QByteArray> methods;
    for (const SeenRequest &request : server.requests()) {
        methods.append(request.method);
        QCOMPARE(request.headers.value("user-agent"), "Tagwright/1.0 (like Safari/Gecko)"_ba);
        QVERIFY(!request.headers.contains("referer"));
        QVERIFY(!request.headers.contains("cookie"));
    }
    QCOMPARE(methods, (QList<QByteArray>{"GET", "POST", "HEAD"}));
    const SeenRequest &form = server.requests().at(1);
    QCOMPARE(form.headers.value("content-type"), "application/x-www-form-urlencoded"_ba);
    QCOMPARE(form.body, "a=1&b=%20"_ba);
}

void HttpQueueTest::loadsEightAtATimeFromOneHost()
{
    HttpServer server;
    server.hold();
    HVHTTPQueue queue({});
    Asker asker;
    for (int i = 0; i < 20; ++i)
        queue.addURL(server.url(u"/%1"_s.arg(i)), &asker, asker.callback());
    QCOMPARE(queue.currentNumberOfConnections(), 8);
    QTRY_COMPARE(server.requests().size(), 8);
    QVERIFY(queue.postURL(server.url(u"/form"_s), &asker, asker.callback(), "x"));
    QCOMPARE(queue.currentNumberOfConnections(), 9);
    QTRY_COMPARE(server.requests().size(), 9);
    server.release();
    QTRY_COMPARE(asker.answers.size(), 21);
    QCOMPARE(server.mostAtOnce(), 9);
}

void HttpQueueTest::frontGoesFirstThenFirstCome()
{
    HttpServer server;
    server.hold();
    HVHTTPQueue queue({});
    queue.setSimultaneousConnections(1);
    Asker asker;
    const auto add = [&](const QString &path, QueueEnd at) {
        queue.addURL(server.url(path), &asker, asker.callback(), at);
    };
    add(u"/runs"_s, QueueEnd::Back);
    add(u"/1"_s, QueueEnd::Back);
    add(u"/2"_s, QueueEnd::Back);
    add(u"/3"_s, QueueEnd::Back);
    add(u"/early"_s, QueueEnd::Front);
    add(u"/earlier"_s, QueueEnd::Front);
    add(u"/3"_s, QueueEnd::Front);
    QTRY_COMPARE(server.requests().size(), 1);
    server.release();
    QTRY_COMPARE(asker.answers.size(), 7);
    QCOMPARE(server.paths(),
             (QStringList{u"/runs"_s, u"/3"_s, u"/earlier"_s, u"/early"_s, u"/1"_s, u"/2"_s}));
}

void HttpQueueTest::tenThousandWait()
{
    FakeClock clock;
    HVHTTPQueue queue({}, clock);
    Asker asker;
    HttpServer server;
    server.hold();
    const QUrl closed = closedPort();
    for (int i = 0; i < 10'000; ++i)
        queue.addURL(server.url(u"/%1"_s.arg(i)), &asker, asker.callback());
    QCOMPARE(queue.urlOfRow(9'999), server.url(u"/9999"_s));
    for (int i = 9'999; i >= 5'000; --i)
        queue.cancelURL(server.url(u"/%1"_s.arg(i)), &asker);
    QTRY_COMPARE(asker.answers.size(), 5'000);
    // The rest fails at once when its host does.
    expectHostRemembered();
    queue.addURL(closed, &asker, asker.callback(), QueueEnd::Front);
    server.release();
    QTRY_COMPARE(asker.answers.size(), 10'001);
    QCOMPARE(queue.numberOfRows(), 0);
}

void HttpQueueTest::htmlAloneIsCut()
{
    HttpServer server;
    const QByteArray much(2'000'000, 'x');
    server.serve(u"/page"_s, {.type = "Text/HTML; charset=utf-8", .body = much});
    server.serve(u"/image"_s, {.type = "image/jpeg", .body = much});
    HVHTTPQueue queue({});
    queue.setMaximumHTMLLength(500'000);
    Asker asker;
    queue.addURL(server.url(u"/page"_s), &asker, asker.callback());
    QTRY_COMPARE(asker.answers.size(), 1);
    queue.addURL(server.url(u"/image"_s), &asker, asker.callback());
    QTRY_COMPARE(asker.answers.size(), 2);
    const FetchResult &page = asker.answers.first();
    QVERIFY(!page.error);
    QCOMPARE(page.MIMEType, u"text/html"_s);
    QVERIFY(page.data.size() >= 500'000);
    QVERIFY(page.data.size() < much.size());
    QCOMPARE(asker.answers.last().data.size(), much.size());
}

void HttpQueueTest::headGivesTheTypeAlone()
{
    HttpServer server;
    server.serve(u"/"_s, {.type = "image/png", .claimedLength = 5000});
    HVHTTPQueue queue({});
    Asker asker;
    queue.getHeadersForURL(server.url(u"/"_s), &asker, asker.callback());
    QTRY_COMPARE(asker.answers.size(), 1);
    QVERIFY(!asker.answers.first().error);
    QVERIFY(asker.answers.first().data.isEmpty());
    QCOMPARE(asker.answers.first().MIMEType, u"image/png"_s);
}

void HttpQueueTest::equalRequestsShareALoad()
{
    HttpServer server;
    server.hold();
    server.serve(u"/"_s, {.body = "page"});
    HVHTTPQueue queue({});
    Asker one;
    Asker other;
    queue.addURL(server.url(u"/"_s), &one, one.callback());
    queue.addURL(server.url(u"/"_s), &other, other.callback());
    queue.addURL(server.url(u"/"_s), &one, one.callback());
    QCOMPARE(queue.numberOfRows(), 3);
    QTRY_COMPARE(server.requests().size(), 1);
    server.release();
    QTRY_COMPARE(one.answers.size(), 2);
    QTRY_COMPARE(other.answers.size(), 1);
    QCOMPARE(one.answers.last().data, "page"_ba);
    QCOMPARE(other.answers.last().data, "page"_ba);
    QCOMPARE(server.requests().size(), 1);
}

void HttpQueueTest::formsToOneAddressStayApart()
{
    HttpServer server;
    server.hold();
    server.serve(u"/"_s, {.echoesBody = true});
    HVHTTPQueue queue({});
    Asker one;
    Asker other;
    QVERIFY(queue.postURL(server.url(u"/"_s), &one, one.callback(), "artist=one"));
    QVERIFY(queue.postURL(server.url(u"/"_s), &other, other.callback(), "artist=other"));
    QVERIFY(!queue.postURL(server.url(u"/"_s), &other, other.callback(), {}));
    QTRY_COMPARE(server.requests().size(), 2);
    server.release();
    QTRY_COMPARE(one.answers.size(), 1);
    QTRY_COMPARE(other.answers.size(), 1);
    QCOMPARE(one.answers.first().data, "artist=one"_ba);
    QCOMPARE(other.answers.first().data, "artist=other"_ba);
}

void HttpQueueTest::cancellingIsForOneOwner()
{
    HttpServer server;
    server.hold();
    server.serve(u"/runs"_s, {.body = "page"});
    HVHTTPQueue queue({});
    queue.setSimultaneousConnections(1);
    Asker one;
    Asker other;
    queue.addURL(server.url(u"/runs"_s), &one, one.callback());
    queue.addURL(server.url(u"/runs"_s), &other, other.callback());
    queue.addURL(server.url(u"/waits"_s), &one, one.callback());
    queue.cancelURL(server.url(u"/runs"_s), &one);
    queue.cancelURL(server.url(u"/waits"_s), &one);
    QTRY_COMPARE(one.answers.size(), 2);
    QVERIFY(isURLAlone(one.answers.first()) && isURLAlone(one.answers.last()));
    QCOMPARE(queue.numberOfRows(), 1);
    QTRY_COMPARE(server.requests().size(), 1);
    server.release();
    QTRY_COMPARE(other.answers.size(), 1);
    QCOMPARE(other.answers.first().data, "page"_ba);
    QCOMPARE(one.answers.size(), 2);
    QCOMPARE(server.paths(), QStringList{u"/runs"_s});
}

void HttpQueueTest::cancelAllLeavesWhatWaits()
{
    HttpServer server;
    server.hold();
    HVHTTPQueue queue({});
    queue.setSimultaneousConnections(1);
    Asker asker;
    queue.addURL(server.url(u"/runs"_s), &asker, asker.callback());
    queue.addURL(server.url(u"/waits"_s), &asker, asker.callback());
    QVERIFY(queue.postURL(server.url(u"/form"_s), &asker, asker.callback(), "x"));
    queue.cancelAll();
    QCOMPARE(queue.currentNumberOfConnections(), 0);
    QTRY_COMPARE(asker.answers.size(), 2);
    QVERIFY(isURLAlone(asker.answers.first()) && isURLAlone(asker.answers.last()));
    QCOMPARE(queue.numberOfRows(), 1);
    QCOMPARE(queue.statusOfRow(0), u"-Queued-"_s);
    server.release();
    queue.addURL(server.url(u"/starts"_s), &asker, asker.callback());
    QTRY_COMPARE(asker.answers.size(), 4);
    QCOMPARE(server.paths().last(), u"/starts"_s);
}

void HttpQueueTest::answersComeLater()
{
    HttpServer server;
    HVHTTPQueue queue({});
    Asker asker;
    int depth = 0;
    // Cancels and asks again from inside the answer.
    const FetchCallback again = [&](const FetchResult &result) {
        QCOMPARE(depth, 0);
        ++depth;
        queue.cancelURL(result.url, &asker);
        queue.cancelURL(server.url(u"/other"_s), &asker);
        queue.addURL(server.url(u"/more"_s), &asker, asker.callback());
        queue.cancelURL(server.url(u"/more"_s), &asker);
        --depth;
        asker.answers.append(result);
    };
    queue.addURL(server.url(u"/"_s), &asker, again);
    queue.addURL(server.url(u"/other"_s), &asker, again);
    queue.cancelURL(server.url(u"/"_s), &asker);
    QCOMPARE(asker.answers.size(), 0);
    QTRY_COMPARE(asker.answers.size(), 4);
    QCOMPARE(queue.numberOfRows(), 0);
}

void HttpQueueTest::aGoneOwnerIsNotAnswered()
{
    HttpServer server;
    server.hold();
    HVHTTPQueue queue({});
    queue.setSimultaneousConnections(1);
    Asker stays;
    auto goes = std::make_unique<Asker>();
    QList<FetchResult> answers;
    const FetchCallback count = [&](const FetchResult &result) { answers.append(result); };
    queue.addURL(server.url(u"/runs"_s), goes.get(), count);
    queue.addURL(server.url(u"/waits"_s), goes.get(), count);
    queue.addURL(server.url(u"/stays"_s), &stays, stays.callback());
    QTRY_COMPARE(server.requests().size(), 1);
    goes.reset();
    server.release();
    QTRY_COMPARE(stays.answers.size(), 1);
    QCOMPARE(answers.size(), 0);
    QCOMPARE(queue.numberOfRows(), 0);
    QCOMPARE(server.paths(), (QStringList{u"/runs"_s, u"/stays"_s}));
}

void HttpQueueTest::aGoneQueueAnswersEveryone()
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

void HttpQueueTest::failedHostsAreLeftAlone()
{
    FakeClock clock;
    HVHTTPQueue queue({}, clock);
    HttpServer server; // of the same host
    Asker asker;
    const auto codeOf = [&](const QUrl &url) {
        asker.answers.clear();
        queue.addURL(url, &asker, asker.callback());
        [&] { QTRY_COMPARE(asker.answers.size(), 1); }();
        return asker.answers.first().error.value_or(FetchError{0, {}}).code;
    };
    expectHostRemembered();
    QCOMPARE(codeOf(closedPort()), FetchError::cannotConnectToHost);
    clock.advance(299s);
    QCOMPARE(codeOf(server.url(u"/"_s)), FetchError::cannotConnectToHost);
    QVERIFY(!queue.postURL(server.url(u"/"_s), &asker, asker.callback(), "form"));
    QCOMPARE(server.requests().size(), 0);
    Asker notRefused;
    queue.getHeadersForURL(server.url(u"/"_s), &notRefused, notRefused.callback());
    QTRY_COMPARE(notRefused.answers.size(), 1);
    clock.advance(2s);
    QCOMPARE(codeOf(server.url(u"/"_s)), 0);
    expectHostRemembered();
    QCOMPARE(codeOf(closedPort()), FetchError::cannotConnectToHost);
    QCOMPARE(codeOf(server.url(u"/"_s)), FetchError::cannotConnectToHost);
}

void HttpQueueTest::anOutageIsToldOnce()
{
    HttpServer server;
    bool isOnline = false;
    HVHTTPQueue queue({}, systemClock(), nullptr, {}, [&] { return isOnline; });
    QStringList lines;
    connect(&queue, &HVHTTPQueue::importantLog, this,
            [&](const QString &line) { lines.append(line); });
    Asker asker;
    const QUrl outOfReach(u"http://255.255.255.255/"_s);
    const auto ask = [&](const QUrl &url) {
        asker.answers.clear();
        queue.addURLIgnoringCache(url, &asker, asker.callback());
        QTRY_COMPARE(asker.answers.size(), 1);
    };
    ask(outOfReach);
    QCOMPARE(asker.answers.first().error->code, FetchError::notConnectedToInternet);
    const QString description = asker.answers.first().error->localizedDescription;
    ask(outOfReach);
    QTRY_COMPARE(lines, QStringList{qtTrId("GeneralErrorPrefix") + description});
    ask(server.url(u"/"_s));
    ask(outOfReach);
    QTRY_COMPARE(lines.size(), 2);
    isOnline = true;
    ask(outOfReach);
    QCOMPARE(asker.answers.first().error->code, FetchError::unknown);
    QCOMPARE(lines.size(), 2);
}

void HttpQueueTest::answersAreKept()
{
    HttpServer server;
    const QList<QByteArray> old{"Cache-Control: max-age=0, must-revalidate",
                                "Expires: Thu, 01 Jan 1970 00:00:00 GMT"};
    server.serveInTurn(u"/old"_s, {{.body = "first", .headers = old}, {.body = "second"}});
    server.serve(u"/secret"_s, {.body = "page", .headers = {"Cache-Control: No-Store"}});
    HVHTTPQueue queue({});
    Asker asker;
    const auto ask = [&](const QString &path) {
        asker.answers.clear();
        queue.addURL(server.url(path), &asker, asker.callback());
        [&] { QTRY_COMPARE(asker.answers.size(), 1); }();
        return asker.answers.first().data;
    };
    QCOMPARE(ask(u"/old"_s), "first"_ba);
    QCOMPARE(ask(u"/old"_s), "first"_ba);
    QCOMPARE(asker.answers.first().MIMEType, u"text/plain"_s);
    QCOMPARE(server.requests().size(), 1);
    queue.removeURLFromCache(server.url(u"/old"_s));
    QCOMPARE(ask(u"/old"_s), "second"_ba);
    asker.answers.clear();
    queue.addURLIgnoringCache(server.url(u"/old"_s), &asker, asker.callback());
    QTRY_COMPARE(asker.answers.size(), 1);
    QCOMPARE(server.requests().size(), 3);
    for (const QString &path : {u"/missing"_s, u"/secret"_s}) {
        const auto before = server.requests().size();
        ask(path);
        ask(path);
        QCOMPARE(server.requests().size(), before + 2);
    }
}

void HttpQueueTest::refusalsAreTriedAgain_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("refusals");
    QTest::addColumn<QByteArray>("header");
    QTest::addColumn<int>("requests");
    QTest::addColumn<int>("result");
    const QByteArray now = "Retry-After: 0";
    QTest::newRow("once") << 429 << 1 << now << 2 << 200;
    QTest::newRow("three times") << 503 << 3 << now << 4 << 200;
    QTest::newRow("not a fourth time") << 429 << 9 << now << 4 << 429;
    QTest::newRow("a date that is past")
        << 503 << 1 << "Retry-After: Fri, 31 Dec 1999 23:59:59 GMT"_ba << 2 << 200;
    QTest::newRow("a longer wait is cut") << 429 << 1 << "Retry-After: 3600"_ba << 2 << 200;
    QTest::newRow("nobody asked to come back") << 503 << 1 << "A: b"_ba << 1 << 503;
    QTest::newRow("other statuses are final") << 500 << 1 << now << 1 << 500;
}

void HttpQueueTest::refusalsAreTriedAgain()
{
    QFETCH(int, status);
    QFETCH(int, refusals);
    QFETCH(QByteArray, header);
    QList<HttpAnswer> answers(refusals, {.status = status, .headers = {header}});
    answers.append(HttpAnswer{.echoesBody = true});
    HttpServer server;
    server.serveInTurn(u"/"_s, answers);
    server.serveInTurn(u"/form"_s, answers);
    HVHTTPQueue queue({}, systemClock(), nullptr, {.retryWait = 10ms});
    Asker asker;
    queue.addURL(server.url(u"/"_s), &asker, asker.callback());
    QTRY_COMPARE(asker.answers.size(), 1);
    QTEST(asker.answers.first().status, "result");
    QTEST(static_cast<int>(server.requests().size()), "requests");
    QVERIFY(queue.postURL(server.url(u"/form"_s), &asker, asker.callback(), "form"));
    QTRY_COMPARE(asker.answers.size(), 2);
    QCOMPARE(server.requests().last().body, "form"_ba);
}

void HttpQueueTest::aHostsPaceIsKept()
{
    HttpServer server;
    FakeClock clock;
    HVHTTPQueue queue({}, clock);
    queue.setMinInterval(u"127.0.0.1"_s, 20ms);
    Asker asker;
    for (const QString &path : {u"/1"_s, u"/2"_s, u"/3"_s})
        queue.addURL(server.url(path), &asker, asker.callback());
    QVERIFY(queue.postURL(server.url(u"/form"_s), &asker, asker.callback(), "x"));
    QTRY_COMPARE(asker.answers.size(), 1);
    QCOMPARE(queue.currentNumberOfConnections(), 0);
    QCOMPARE(queue.statusOfRow(0), u"-Queued-"_s);
    for (int answered = 2; answered <= 4; ++answered) {
        clock.advance(20ms);
        QTRY_COMPARE(asker.answers.size(), answered);
    }
    QCOMPARE(server.paths(), (QStringList{u"/1"_s, u"/form"_s, u"/2"_s, u"/3"_s}));
}

void HttpQueueTest::rowsAndIndicatorFollowTheLoad()
{
    HttpServer server;
    server.serve(u"/"_s, {.body = "12345", .claimedLength = 10, .then = HttpAnswer::Then::Stall});
    HVHTTPQueue queue({});
    queue.setSimultaneousConnections(1);
    QSignalSpy changes(&queue, &HVHTTPQueue::rowsChanged);
    Asker asker;
    Progress indicator;
    queue.addURLUsingIndicator(server.url(u"/"_s), &asker, asker.callback(), &indicator);
    queue.addURL(server.url(u"/next"_s), &asker, asker.callback());
    QVERIFY(indicator.isIndeterminate());
    QCOMPARE(queue.numberOfRows(), 2);
    QCOMPARE(queue.urlOfRow(1), server.url(u"/next"_s));
    QCOMPARE(queue.statusOfRow(0), u"-Wait-"_s);
    QCOMPARE(queue.statusOfRow(1), u"-Queued-"_s);
    QTRY_COMPARE(queue.statusOfRow(0), u"5 bytes"_s);
    QVERIFY(!indicator.isIndeterminate());
    QCOMPARE(indicator.maximum(), 10.0);
    QCOMPARE(indicator.value(), 5.0);
    queue.cancelURL(server.url(u"/"_s), &asker);
    QTRY_COMPARE(asker.answers.size(), 2);
    QVERIFY(!changes.isEmpty());
}

QTEST_GUILESS_MAIN(HttpQueueTest)
#include "tst_httpqueue.moc"
