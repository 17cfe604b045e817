#include "gathering/fetcherrors.h"
#include "gathering/hostpace.h"
#include "gathering/retryafter.h"
#include "support/fakeclock.h"

#include <QTest>

using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

/// The rules by which the queue decides, without a network.
class FetchRulesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void errorsHaveCodes_data();
    void errorsHaveCodes();
    void retryAfterIsRead_data();
    void retryAfterIsRead();
    void hostsHaveAPace();
};

void FetchRulesTest::errorsHaveCodes_data()
{
    using Error = QNetworkReply::NetworkError;
    QTest::addColumn<Error>("error");
    QTest::addColumn<int>("online");
    QTest::addColumn<int>("offline");
    QTest::newRow("time-out") << Error::TimeoutError << -1001 << -1001;
    QTest::newRow("unknown host") << Error::HostNotFoundError << -1003 << -1009;
    QTest::newRow("refused") << Error::ConnectionRefusedError << -1004 << -1004;
    QTest::newRow("unreachable") << Error::UnknownNetworkError << -1 << -1009;
    QTest::newRow("no certificate") << Error::SslHandshakeFailedError << -1 << -1;
    QTest::newRow("closed") << Error::RemoteHostClosedError << -1 << -1;
}

void FetchRulesTest::errorsHaveCodes()
{
    QFETCH(QNetworkReply::NetworkError, error);
    const FetchError online = fetchErrorFor(error, u"why"_s, true);
    QTEST(online.code, "online");
    QCOMPARE(online.localizedDescription, u"why"_s);
    QTEST(fetchErrorFor(error, u"why"_s, false).code, "offline");
}

void FetchRulesTest::retryAfterIsRead_data()
{
    QTest::addColumn<QByteArray>("header");
    QTest::addColumn<qint64>("milliseconds"); // -1: unreadable
    QTest::newRow("seconds") << "30"_ba << qint64(30'000);
    QTest::newRow("none at all") << "0"_ba << qint64(0);
    QTest::newRow("less than none") << "-5"_ba << qint64(0);
    QTest::newRow("more than a day") << "9999999999999"_ba << qint64(86'400'000);
    QTest::newRow("a date") << "Sun, 06 Nov 1994 08:49:37 GMT"_ba << qint64(37'000);
    QTest::newRow("a date of old") << "Sunday, 06-Nov-94 08:49:37 GMT"_ba << qint64(37'000);
    QTest::newRow("a date of C") << "Sun Nov  6 08:49:37 1994"_ba << qint64(37'000);
    QTest::newRow("a date that is past") << "Sun, 06 Nov 1994 08:00:00 GMT"_ba << qint64(0);
    QTest::newRow("missing") << ""_ba << qint64(-1);
    QTest::newRow("words") << "soon"_ba << qint64(-1);
}

void FetchRulesTest::retryAfterIsRead()
{
    QFETCH(QByteArray, header);
    const Clock::Time now{784'111'740s}; // 1994-11-06 08:49:00 UTC
    QTEST(qint64(retryAfter(header, now).value_or(-1ms).count()), "milliseconds");
}

void FetchRulesTest::hostsHaveAPace()
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
    clock.advance(-1h); // set back
    QCOMPARE(pace.timeToWait(u"host"_s), 2000ms);
    clock.advance(2h);
    QCOMPARE(pace.timeToWait(u"host"_s), 0ms);
}

QTEST_GUILESS_MAIN(FetchRulesTest)
#include "tst_fetchrules.moc"
