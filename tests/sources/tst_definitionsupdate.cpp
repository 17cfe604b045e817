#include "sources/definitionsupdate.h"

#include "base/propertylist.h"
#include "base/texts.h"
#include "support/fakeclock.h"
#include "support/httpserver.h"
#include "support/table.h"

#include <QSignalSpy>
#include <QTemporaryDir>

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
    void initTestCase() { installTexts(); }

    void asksOncePerDay_data()
    {
        // age: of the last check, in seconds
        const Table<qint64, bool> row("age", "asks");
        row("a day ago", 86400, false);
        row("a second more", 86401, true);
        row("in the future", -1, true);
    }
    void asksOncePerDay()
    {
        QFETCH(qint64, age);
        QFETCH(bool, asks);
        World world;
        world.store.liveResources();
        const auto now =
            std::chrono::floor<std::chrono::seconds>(world.clock.now().time_since_epoch());
        SiteDefinitionStore::lastCheck.set(world.settings, now.count() - age);
        world.update.setAddresses(world.address(u"/new"_s), {});
        world.update.checkDaily();
        world.update.checkDaily();
        QCOMPARE(world.queue.numberOfRows(), asks ? 1 : 0);
        QTRY_COMPARE(world.merged.size(), asks ? 1 : 0);
        QCOMPARE(world.store.liveResources().genres().size(), asks ? 1 : 192);
    }

    void fallbackIsAskedWhenNothingCame_data()
    {
        const Table<QString, QString, bool, bool, bool> row("first", "fallback", "asksFallback",
                                                            "isMerged", "staysChecked");
        row("first address answers", u"/new"_s, u"/page"_s, false, true, true);
        row("failure", u"/reset"_s, u"/new"_s, true, true, true);
        row("both fail", u"/empty"_s, u"/reset"_s, true, false, false);
        row("no fallback", u"/reset"_s, {}, false, false, false);
        row("what is no property list is passed over", u"/page"_s, u"/new"_s, false, false, true);
    }
    void fallbackIsAskedWhenNothingCame()
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

    void onlyTrustedAddressesAreTried_data()
    {
        const Table<QString> row("address");
        row("http", u"http://192.0.2.1/new"_s);
        row("a file", u"file:///etc/passwd"_s);
    }
    void onlyTrustedAddressesAreTried()
    {
        QFETCH(QString, address);
        World world;
        const QString line = u"newer definitions come over https only, not from "_s + address;
        QTest::ignoreMessage(QtWarningMsg, qPrintable(line));
        world.update.setAddresses(address, {});
        world.update.checkDaily();
        QCOMPARE(world.queue.numberOfRows(), 0);
        QVERIFY(!world.wasChecked());
    }

    void newerReleaseIsAnnounced_data()
    {
        const Table<QVariantMap, QString> row("changes", "message"); // empty: nothing is told
        row("without notes", {}, u"Tagwright 2.0 is there."_s);
        row("notes behind", {{u"latestReleaseNotes"_s, u"Faster."_s}},
            u"Tagwright 2.0 is there.\n\nFaster."_s);
        row("notes in front", {{u"latestReleaseNotes"_s, u"!Urgent."_s}},
            u"Urgent.\n\nTagwright 2.0 is there."_s);
        row("this release", {{u"latestReleaseNumber"_s, 116}}, {});
        row("no version", {{u"latestVersion"_s, QString()}}, {});
    }
    void newerReleaseIsAnnounced()
    {
        QFETCH(QVariantMap, changes);
        QVariantMap newer{{u"latestReleaseNumber"_s, 117},
                          {u"latestVersion"_s, u"2.0"_s},
                          {u"latestDLLocation"_s, u"https://tagwright.example/"_s}};
        newer.insert(changes);
        World world;
        world.server.serve(u"/new?" TAGWRIGHT_VERSION ""_s, {.body = PropertyList::toXml(newer)});
        QString message;
        connect(&world.update, &DefinitionsUpdate::releaseAnnounced, this,
                [&message](const auto &release) { message = release.message; });
        world.update.setAddresses(world.address(u"/new"_s), {});
        world.update.checkDaily();
        QTRY_COMPARE(world.merged.size(), 1);
        QTEST(message, "message");
    }
};

QTEST_GUILESS_MAIN(TestDefinitionsUpdate)
#include "tst_definitionsupdate.moc"
