#include "gathering/httpqueue.h"

#include "support/fakeclock.h"
#include "support/httpserver.h"

#include <QTest>

using namespace std::chrono_literals;

namespace {
/// Someone who asks, and everything that was answered.
struct Asker : QObject {
    FetchCallback callback()
    {
        return [this](const FetchResult &result) { answers.append(result); };
    }
    QList<FetchResult> answers;
};
} // namespace

class HttpQueueTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void givesThePage()
    {
        HttpServer server;
        server.serve(QStringLiteral("/page"),
                     {.type = "text/html; charset=utf-8", .body = "hello"});
        HVHTTPQueue queue({});
        Asker asker;
        queue.addURL(server.url(QStringLiteral("/page")), &asker, asker.callback());
        QCOMPARE(queue.currentNumberOfConnections(), 1);
        QTRY_COMPARE(asker.answers.size(), 1);
        QCOMPARE(asker.answers.first().data, QByteArray("hello"));
        QCOMPARE(asker.answers.first().MIMEType, QStringLiteral("text/html"));
        QVERIFY(!asker.answers.first().error);
        QCOMPARE(queue.numberOfRows(), 0);
    }

    void loadsEightAtATimeFromOneHost()
    {
        HttpServer server;
        server.hold();
        HVHTTPQueue queue({});
        Asker asker;
        for (int i = 0; i < 20; ++i)
            queue.addURL(server.url(QStringLiteral("/%1").arg(i)), &asker, asker.callback());
        QTRY_COMPARE(server.requests().size(), 8);
        server.release();
        QTRY_COMPARE(asker.answers.size(), 20);
        QCOMPARE(server.mostAtOnce(), 8);
    }
};

QTEST_GUILESS_MAIN(HttpQueueTest)
#include "tst_httpqueue.moc"
