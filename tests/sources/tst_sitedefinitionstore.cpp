#include "sources/definitionsupdate.h"

#include "base/folders.h"
#include "base/propertylist.h"
#include "base/resources.h"
#include "base/texts.h"
#include "gathering/definitioncheck.h"
#include "sources/builtinsources.h"
#include "sources/sitedefinitionstore.h"
#include "support/fakeclock.h"
#include "support/httpserver.h"
#include "support/table.h"
#include "support/tempfiles.h"

#include <QRegularExpression>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

QVariantMap release(const QVariant &number, QVariantMap values = {})
{
    values[u"latestReleaseNumber"_s] = number;
    return values;
}

QByteArray xml(const QVariantMap &set)
{
    return PropertyList::toXml(set);
}

const QVariantMap badAddress{{u"queryPOST"_s, u"file:///etc/passwd"_s}};

/// A user whose definitions are updated from the test server.
struct World {
    World()
    {
        const QVariantMap newer = release(117, {{u"genres"_s, QVariantList{u"Newer"_s}}});
        server.serve(u"/new?" TAGWRIGHT_VERSION ""_s, {.body = xml(newer)});
        server.serve(u"/empty?" TAGWRIGHT_VERSION ""_s, {});
        server.serve(u"/reset?" TAGWRIGHT_VERSION ""_s, {.then = HttpAnswer::Then::Reset});
        server.serve(u"/page?" TAGWRIGHT_VERSION ""_s, {.body = "<html>hello</html>"});
        server.serve(u"/old?" TAGWRIGHT_VERSION ""_s, {.body = xml(release(115))});
        server.serve(u"/long?" TAGWRIGHT_VERSION ""_s,
                     {.body = QByteArray(3 << 20, ' '),
                      .claimedLength = 30 << 20,
                      .then = HttpAnswer::Then::Stall});
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

class TestSiteDefinitionStore : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installTexts(); }
    void init()
    {
        mFolder = std::make_unique<QTemporaryDir>();
        qputenv("XDG_DATA_HOME", mFolder->path().toUtf8());
        mSettings = std::make_unique<QSettings>(mFolder->filePath(u"conf"_s), QSettings::IniFormat);
    }

    void builtInSetHolds()
    {
        SiteDefinitionStore store(*mSettings);
        const SiteDefinitions &live = store.liveResources();
        QCOMPARE(problemOfDefinitions(live.values()).value_or(QString()), QString());
        QCOMPARE(live.genres().size(), 192);
        const SourceCatalog catalog = builtInSources();
        const QStringList classes = live.sourcelist();
        QVERIFY(!classes.isEmpty());
        for (const QString &name : classes)
            QVERIFY2(catalog.find(name) && live.definitionOf(name), qPrintable(name));
        QCOMPARE(catalog.find(u"FreeDBInterface"_s)->resourcesPossiblyAvailable.toInt(), 122U);
        store.useDefinitions({});
        QVERIFY(store.liveResources().isEmpty()); // the built-in ones are not what was chosen
    }

    void storedSetIsUsed_data()
    {
        const Table<QByteArray, QString, bool, QString> row("stored", "version", "isUsed", "log");
        const QString ours = QStringLiteral(TAGWRIGHT_VERSION);
        row("of this release", xml(release(116)), ours, true, {});
        row("older", xml(release(115)), ours, false, {});
        row("without a number", xml({{u"genres"_s, QVariantList()}}), ours, false, {});
        row("of another version", xml(release(116)), u"0.0.9"_s, false, {});
        row("no property list", "<plist>", ours, false, {});
        row("with a fault", xml(release(116, {{u"res_FreeDBInterface"_s, badAddress}})), ours,
            false,
            u"stored definitions refused: "
            "res_FreeDBInterface/queryPOST is no http or https address: file:///etc/passwd"_s);
    }
    void storedSetIsUsed()
    {
        QFETCH(QByteArray, stored);
        QFETCH(QString, version);
        QFETCH(bool, isUsed);
        QFETCH(QString, log);
        mSettings->setValue(u"siteDefinitions_"_s + version, stored);
        SiteDefinitionStore::lastCheck.set(*mSettings, 1);
        if (!log.isEmpty())
            QTest::ignoreMessage(QtWarningMsg, qPrintable(log));
        SiteDefinitionStore store(*mSettings);
        QCOMPARE(store.liveResources().sourcelist().isEmpty(), isUsed);
        QCOMPARE(SiteDefinitionStore::lastCheck.isSet(*mSettings), isUsed);
    }

    void brokenSetOfTheUserIsLogged()
    {
        QDir().mkpath(dataFolder());
        const QString path = dataFolder() + u"/defaultres.xml"_s;
        writeFile(path, "<plist><dict>");
        SiteDefinitionStore store(*mSettings);
        static const QRegularExpression decodeLine(u"^decode defres: ."_s);
        QTest::ignoreMessage(QtWarningMsg, decodeLine);
        QVERIFY(store.liveResources().isEmpty());
        writeFile(path, xml({{u"genres"_s, 7}}));
        QTest::ignoreMessage(QtWarningMsg,
                             "built-in definitions refused: genres is no list of texts: 7");
        QVERIFY(store.liveResources().isEmpty());
        writeFile(path, xml({{u"genres"_s, QVariantList{u"Own"_s}}}));
        QCOMPARE(store.liveResources().genres(),
                 QStringList{u"Own"_s}); // the next call tried again
    }

    void newerSetIsMerged_data()
    {
        const Table<QByteArray, bool, QString> row("newer", "isMerged", "log");
        const QVariantMap genres{{u"genres"_s, QVariantList{u"Newer"_s}}};
        row("of this release", xml(release(116, genres)), true, {});
        row("of an earlier one", xml(release(115, genres)), false, {});
        row("a list", PropertyList::toXml(QVariantList{116}), false, {});
        row("no property list", "<html>404</html>", false, {});
        QVariantMap faulty = release(117, genres);
        faulty[u"res_FreeDBInterface"_s] = badAddress;
        row("one fault refuses all of it", xml(faulty), false,
            u"newer definitions refused: res_FreeDBInterface/queryPOST is no http or https address: file:///etc/passwd"_s);
        row("too large with what is kept",
            PropertyList::toBinary(
                release(117, {{u"latestReleaseNotes"_s, QString(2'090'000, u'x')}})),
            false, u"newer definitions refused: is larger than 2 MB"_s);
        row("too large", xml(release(117, {{u"latestReleaseNotes"_s, QString(3 << 20, u'x')}})),
            false, u"newer definitions refused: is larger than 2 MB"_s);
    }
    void newerSetIsMerged()
    {
        QFETCH(QByteArray, newer);
        QFETCH(bool, isMerged);
        QFETCH(QString, log);
        if (!log.isEmpty())
            QTest::ignoreMessage(QtWarningMsg, qPrintable(log));
        SiteDefinitionStore store(*mSettings);
        QCOMPARE(store.mergeAndStore(newer).isEmpty(), isMerged);
        SiteDefinitionStore atNextStart(*mSettings);
        for (SiteDefinitionStore *each : {&store, &atNextStart}) {
            QCOMPARE(each->liveResources().genres().size(), isMerged ? 1 : 192);
            QVERIFY(!each->liveResources().sourcelist().isEmpty()); // a key that the new set lacks
        }
    }

    void filesAreChecked()
    {
        const QString path = mFolder->filePath(u"set"_s);
        QVERIFY(!SiteDefinitionStore::loadFile(path).error.isEmpty()); // missing
        const QVariantMap set{{u"genres"_s, QVariantList{u"Own"_s}}}; // without a release number
        for (const auto &[contents, error] :
             {std::pair{xml(set), QString()},
              {PropertyList::toBinary(set), QString()},
              {xml({{u"sourcelist"_s, 7}}), u"sourcelist is no list of texts: 7"_s},
              {PropertyList::toXml(u"text"_s), u"is no dictionary"_s},
              {QByteArray(3 << 20, ' '), u"is larger than 2 MB"_s}}) {
            writeFile(path, contents);
            const auto loaded = SiteDefinitionStore::loadFile(path);
            QCOMPARE(loaded.error, error);
            QCOMPARE(loaded.definitions.isEmpty(), !error.isEmpty());
        }
    }

    void asksOncePerDay()
    {
        for (const auto &[age, asks] : {std::pair{86400, false}, {86401, true}, {-1, true}}) {
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
    }

    void fallbackIsAskedWhenNothingCame_data()
    {
        const Table<QString, QString, bool, bool, bool> row("first", "fallback", "asksFallback",
                                                            "isMerged", "staysChecked");
        row("first address answers", u"/new"_s, u"/page"_s, false, true, true);
        row("failure", u"/reset"_s, u"/new"_s, true, true, true);
        row("both fail", u"/empty"_s, u"/reset"_s, true, false, false);
        row("too long: it is not waited for the rest", u"/long"_s, u"/new"_s, true, true, true);
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

    void askingNowTellsHowItEnded()
    {
        for (const auto &[path, problem] : {std::pair{u"/new"_s, QString()},
                                            {u"/page"_s, u"/page?" TAGWRIGHT_VERSION ": "_s},
                                            {u"/old"_s, u": is meant for a release before 116"_s},
                                            {u"/empty"_s, u": the answer is empty (status 200)"_s},
                                            {u"/long"_s, u": The answer is longer than 2 MB"_s}}) {
            World world;
            QSignalSpy finished(&world.update, &DefinitionsUpdate::finished);
            QVERIFY(!world.update.checkNow()); // no address
            world.update.setAddresses(world.address(u"/new"_s), {});
            world.update.checkDaily();
            QTRY_COMPARE(finished.size(), 1);
            world.update.setAddresses(world.address(path), {});
            QVERIFY(world.update.checkNow());
            QTRY_COMPARE(finished.size(), 2);
            const QString told = finished[1][0].toString();
            QVERIFY2(told.contains(problem) && told.isEmpty() == problem.isEmpty(),
                     qPrintable(told));
        }
    }

    void onlyTrustedAddressesAreTried()
    {
        for (const QString &address : {u"http://192.0.2.1/new"_s, u"file:///etc/passwd"_s}) {
            World world;
            const QString line = u"newer definitions come over https only, not from "_s + address;
            QTest::ignoreMessage(QtWarningMsg, qPrintable(line));
            world.update.setAddresses(address, {});
            world.update.checkDaily();
            QCOMPARE(world.queue.numberOfRows(), 0);
            QVERIFY(!world.wasChecked());
        }
    }

    void newerReleaseIsAnnounced_data()
    {
        const Table<QVariantMap, QString> row("changes", "message"); // empty: nothing is told
        row("notes behind", {{u"latestReleaseNotes"_s, u"Faster."_s}},
            u"Tagwright 2.0 has been released.\n\nFaster."_s);
        row("this release", {{u"latestReleaseNumber"_s, 116}}, {});
        row("notes in front", {{u"latestReleaseNotes"_s, u"!Urgent."_s}},
            u"Urgent.\n\nTagwright 2.0 has been released."_s);
    }
    void newerReleaseIsAnnounced()
    {
        QFETCH(QVariantMap, changes);
        QVariantMap newer = release(117,
                                    {{u"latestVersion"_s, u"2.0"_s},
                                     {u"latestDLLocation"_s, u"https://tagwright.example/"_s}});
        newer.insert(changes);
        World world;
        world.server.serve(u"/new?" TAGWRIGHT_VERSION ""_s, {.body = xml(newer)});
        QString message;
        connect(&world.update, &DefinitionsUpdate::releaseAnnounced, this,
                [&message](const auto &release) { message = release.message; });
        world.update.setAddresses(world.address(u"/new"_s), {});
        world.update.checkDaily();
        QTRY_COMPARE(world.merged.size(), 1);
        QTEST(message, "message");
    }

private:
    std::unique_ptr<QTemporaryDir> mFolder;
    std::unique_ptr<QSettings> mSettings;
};

QTEST_GUILESS_MAIN(TestSiteDefinitionStore)
#include "tst_sitedefinitionstore.moc"
