#include "sources/definitionsupdate.h"

#include "base/propertylist.h"
#include "support/fakeclock.h"
#include "support/httpserver.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A user whose definitions are updated from the test server.
struct World {
    World()
    {
        const QVariantMap newer{{u"latestReleaseNumber"_s, 117},
                                {u"genres"_s, QVariantList{u"Newer"_s}}};
        server.serve(u"/new?" TAGWRIGHT_VERSION ""_s, {.body = PropertyList::toXml(newer)});
        server.serve(u"/empty?" TAGWRIGHT_VERSION ""_s, {});
        server.serve(u"/reset?" TAGWRIGHT_VERSION ""_s, {.then = HttpAnswer::Then::Reset});
        server.serve(u"/page?" TAGWRIGHT_VERSION ""_s, {.body = "<html>hello</html>"});
    }

    [[nodiscard]] QString address(const QString &path) const
    {
        return path.isEmpty() ? path : server.url(path).toString() + u"?%@"_s;
    }
    [[nodiscard]] bool wasChecked() const { return SiteDefinitionStore::lastCheck.isSet(settings); }

    FakeClock clock;
    QTemporaryDir folder;
    QSettings settings{folder.filePath(u"conf"_s), QSettings::IniFormat};
    HttpServer server;
    HVHTTPQueue queue{QString()};
    SiteDefinitionStore store{settings};
    DefinitionsUpdate update{store, settings, queue, clock};
    QSignalSpy merged{&update, &DefinitionsUpdate::merged};
};

} // namespace

class TestDefinitionsUpdate : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void asksOncePerDay_data();
    void asksOncePerDay();
    void fallbackIsAskedWhenNothingCame_data();
    void fallbackIsAskedWhenNothingCame();
    void onlyTrustedAddressesAreTried_data();
    void onlyTrustedAddressesAreTried();
};

void TestDefinitionsUpdate::asksOncePerDay_data()
{
    QTest::addColumn<qint64>("age"); // of the last check, in seconds
    QTest::addColumn<bool>("asks");
    QTest::newRow("a day ago") << qint64(86400) << false;
    QTest::newRow("a second more") << qint64(86401) << true;
    QTest::newRow("just now") << qint64(0) << false;
    QTest::newRow("in the future") << qint64(-1) << true;
}

void TestDefinitionsUpdate::asksOncePerDay()
{
    QFETCH(qint64, age);
    QFETCH(bool, asks);
    World world;
    world.store.liveResources();
    const auto now = std::chrono::floor<std::chrono::seconds>(world.clock.now().time_since_epoch());
    SiteDefinitionStore::lastCheck.set(world.settings, now.count() - age);
    world.update.setAddresses(world.address(u"/new"_s), {});
    world.update.checkDaily();
    world.update.checkDaily();
    QCOMPARE(world.queue.numberOfRows(), asks ? 1 : 0);
    QTRY_COMPARE(world.merged.size(), asks ? 1 : 0);
    QCOMPARE(world.store.liveResources().genres().size(), asks ? 1 : 192);
}

void TestDefinitionsUpdate::fallbackIsAskedWhenNothingCame_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("fallback"); // empty: none
    QTest::addColumn<bool>("asksFallback");
    QTest::addColumn<bool>("isMerged");
    QTest::addColumn<bool>("staysChecked"); // else the next start tries again
    const auto row = [](const char *name, const QString &first, const QString &fallback,
                        bool asksFallback, bool isMerged, bool staysChecked) {
        QTest::newRow(name) << first << fallback << asksFallback << isMerged << staysChecked;
    };
    row("first address answers", u"/new"_s, u"/page"_s, false, true, true);
    row("no data", u"/empty"_s, u"/new"_s, true, true, true);
    row("failure", u"/reset"_s, u"/new"_s, true, true, true);
    row("both fail", u"/empty"_s, u"/reset"_s, true, false, false);
    row("no fallback", u"/reset"_s, {}, false, false, false);
    row("what is no property list is passed over", u"/page"_s, u"/new"_s, false, false, true);
}

void TestDefinitionsUpdate::fallbackIsAskedWhenNothingCame()
{
    QFETCH(QString, first);
    QFETCH(QString, fallback);
    QFETCH(bool, asksFallback);
    World world;
    world.update.setAddresses(world.address(first), world.address(fallback));
    world.update.checkDaily();
    QVERIFY(world.wasChecked());
    QTRY_COMPARE(world.server.paths().size(), asksFallback ? 2 : 1);
    QTRY_COMPARE(world.queue.numberOfRows(), 0);
    for (int turn = 0; turn < 20; ++turn)
        QCoreApplication::processEvents();
    QCOMPARE(world.server.paths().size(), asksFallback ? 2 : 1);
    QTEST(world.merged.size() == 1, "isMerged");
    QTEST(world.wasChecked(), "staysChecked");
}

void TestDefinitionsUpdate::onlyTrustedAddressesAreTried_data()
{
    QTest::addColumn<QString>("address");
    QTest::newRow("none") << QString();
    QTest::newRow("http") << u"http://192.0.2.1/new"_s;
    QTest::newRow("a file") << u"file:///etc/passwd"_s;
}

void TestDefinitionsUpdate::onlyTrustedAddressesAreTried()
{
    QFETCH(QString, address);
    World world;
    if (!address.isEmpty())
        QTest::ignoreMessage(
            QtWarningMsg,
            qPrintable(u"newer definitions come over https only, not from "_s + address));
    world.update.setAddresses(address, {});
    world.update.checkDaily();
    QCOMPARE(world.queue.numberOfRows(), 0);
    QVERIFY(!world.wasChecked());
}

QTEST_GUILESS_MAIN(TestDefinitionsUpdate)
#include "tst_definitionsupdate.moc"
