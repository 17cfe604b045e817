#include "gathering/fetcherrors.h"

#include "gathering/hostpace.h"
#include "gathering/retryafter.h"
#include "support/fakeclock.h"
#include "support/table.h"

using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

/// The rules by which the queue decides, without a network.
class FetchRulesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void errorsHaveCodes_data()
    {
        using Error = QNetworkReply::NetworkError;
        const Table<Error, int, int> row("error", "online", "offline");
        row("time-out", Error::TimeoutError, -1001, -1001);
        row("unknown host", Error::HostNotFoundError, -1003, -1009);
        row("refused", Error::ConnectionRefusedError, -1004, -1004);
        row("unreachable", Error::UnknownNetworkError, -1, -1009);
        row("no certificate", Error::SslHandshakeFailedError, -1, -1);
        row("closed", Error::RemoteHostClosedError, -1, -1);
    }
    void errorsHaveCodes()
    {
        QFETCH(QNetworkReply::NetworkError, error);
        const FetchError online = fetchErrorFor(error, u"why"_s, true);
        QTEST(online.code, "online");
        QCOMPARE(online.localizedDescription, u"why"_s);
        QTEST(fetchErrorFor(error, u"why"_s, false).code, "offline");
    }

    void retryAfterIsRead_data()
    {
        // milliseconds: -1: unreadable
        const Table<QByteArray, qint64> row("header", "milliseconds");
        row("seconds", "30", 30'000);
        row("none at all", "0", 0);
        row("less than none", "-5", 0);
        row("more than a day", "9999999999999", 86'400'000);
        row("a date", "Sun, 06 Nov 1994 08:49:37 GMT", 37'000);
        row("a date of old", "Sunday, 06-Nov-94 08:49:37 GMT", 37'000);
        row("a date of C", "Sun Nov  6 08:49:37 1994", 37'000);
        row("a date that is past", "Sun, 06 Nov 1994 08:00:00 GMT", 0);
        row("missing", "", -1);
        row("words", "soon", -1);
    }
    void retryAfterIsRead()
    {
        QFETCH(QByteArray, header);
        const Clock::Time now{784'111'740s}; // 1994-11-06 08:49:00 UTC
        QTEST(qint64(retryAfter(header, now).value_or(-1ms).count()), "milliseconds");
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
        clock.advance(-1h); // set back
        QCOMPARE(pace.timeToWait(u"host"_s), 2000ms);
        clock.advance(2h);
        QCOMPARE(pace.timeToWait(u"host"_s), 0ms);
    }
};

QTEST_GUILESS_MAIN(FetchRulesTest)
#include "tst_fetchrules.moc"
