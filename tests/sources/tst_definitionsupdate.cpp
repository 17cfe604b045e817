#include "sources/definitionsupdate.h"

#include "base/propertylist.h"
#include "support/fakeclock.h"
#include "support/httpserver.h"

#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

class TestDefinitionsUpdate : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void asksOncePerDay_data();
    void asksOncePerDay();
    void fallbackIsAskedWhenNothingCame_data();
    void fallbackIsAskedWhenNothingCame();
    void nothingIsTriedWithoutAddress();
    void onlyHttpsIsTrusted();

private:
    [[nodiscard]] QString address(const QString &path) const
    {
        return mServer->url(path).toString() + u"?v=%@"_s;
    }
    [[nodiscard]] bool wasChecked() const
    {
        return SiteDefinitionStore::lastCheck.isSet(*mSettings);
    }

    FakeClock mClock;
    std::unique_ptr<QTemporaryDir> mFolder;
    std::unique_ptr<QSettings> mSettings;
    std::unique_ptr<HttpServer> mServer;
    std::unique_ptr<HVHTTPQueue> mQueue;
    std::unique_ptr<SiteDefinitionStore> mStore;
    std::unique_ptr<DefinitionsUpdate> mUpdate;
};

void TestDefinitionsUpdate::init()
{
    mUpdate.reset();
    mFolder = std::make_unique<QTemporaryDir>();
    mSettings = std::make_unique<QSettings>(mFolder->filePath(u"conf"_s), QSettings::IniFormat);
    mServer = std::make_unique<HttpServer>();
    mQueue = std::make_unique<HVHTTPQueue>(QString());
    mStore = std::make_unique<SiteDefinitionStore>(*mSettings);
    mUpdate = std::make_unique<DefinitionsUpdate>(*mStore, *mSettings, *mQueue, mClock);
    const QVariantMap newer{{u"latestReleaseNumber"_s, 117},
                            {u"genres"_s, QVariantList{u"Newer"_s}}};
    mServer->serve(u"/new?v=" TAGWRIGHT_VERSION ""_s, {.body = PropertyList::toXml(newer)});
    mServer->serve(u"/empty?v=" TAGWRIGHT_VERSION ""_s, {});
    mServer->serve(u"/reset?v=" TAGWRIGHT_VERSION ""_s, {.then = HttpAnswer::Then::Reset});
    mServer->serve(u"/page?v=" TAGWRIGHT_VERSION ""_s, {.body = "<html>hello</html>"});
}

void TestDefinitionsUpdate::asksOncePerDay_data()
{
    QTest::addColumn<qint64>("age"); // of the last check, in seconds
    QTest::addColumn<bool>("asks");
    QTest::newRow("just now") << qint64(0) << false;
    QTest::newRow("a day ago") << qint64(86400) << false;
    QTest::newRow("a second more") << qint64(86401) << true;
    QTest::newRow("in the future") << qint64(-1) << true;
}

void TestDefinitionsUpdate::asksOncePerDay()
{
    QFETCH(qint64, age);
    QFETCH(bool, asks);
    mStore->liveResources();
    const auto now = std::chrono::floor<std::chrono::seconds>(mClock.now().time_since_epoch());
    SiteDefinitionStore::lastCheck.set(*mSettings, now.count() - age);
    mUpdate->setAddresses(address(u"/new"_s), {});
    QSignalSpy merged(mUpdate.get(), &DefinitionsUpdate::merged);
    mUpdate->checkDaily();
    QCOMPARE(mQueue->numberOfRows(), asks ? 1 : 0);
    if (asks)
        QVERIFY(merged.wait());
    QCOMPARE(mStore->liveResources().genres().size(), asks ? 1 : 192);
    mUpdate->checkDaily();
    QCOMPARE(mQueue->numberOfRows(), 0);
}

void TestDefinitionsUpdate::fallbackIsAskedWhenNothingCame_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("fallback"); // empty: none
    QTest::addColumn<QStringList>("asked");
    QTest::addColumn<bool>("isMerged");
    QTest::addColumn<bool>("staysChecked"); // else the next start tries again
    const QString none;
    QTest::newRow("first address answers")
        << u"/new"_s << u"/page"_s << QStringList{u"/new"_s} << true << true;
    QTest::newRow("no data") << u"/empty"_s << u"/new"_s << QStringList{u"/empty"_s, u"/new"_s}
                             << true << true;
    QTest::newRow("failure") << u"/reset"_s << u"/new"_s << QStringList{u"/reset"_s, u"/new"_s}
                             << true << true;
    QTest::newRow("both fail") << u"/empty"_s << u"/reset"_s
                               << QStringList{u"/empty"_s, u"/reset"_s} << false << false;
    QTest::newRow("no fallback") << u"/reset"_s << none << QStringList{u"/reset"_s} << false
                                 << false;
    QTest::newRow("what is no property list is passed over")
        << u"/page"_s << u"/new"_s << QStringList{u"/page"_s} << false << true;
}

void TestDefinitionsUpdate::fallbackIsAskedWhenNothingCame()
{
    QFETCH(QString, first);
    QFETCH(QString, fallback);
    QFETCH(QStringList, asked);
    mUpdate->setAddresses(address(first), fallback.isEmpty() ? QString() : address(fallback));
    QSignalSpy merged(mUpdate.get(), &DefinitionsUpdate::merged);
    mUpdate->checkDaily();
    QVERIFY(wasChecked());
    const auto askedPaths = [this] {
        QStringList paths = mServer->paths();
        return paths.replaceInStrings(QRegularExpression(u"\\?.*"_s), QString());
    };
    QTRY_COMPARE(mQueue->numberOfRows(), 0);
    for (int turn = 0; turn < 20; ++turn)
        QCoreApplication::processEvents();
    QTRY_COMPARE(mQueue->numberOfRows(), 0);
    QCOMPARE(askedPaths(), asked);
    QTEST(merged.size() == 1, "isMerged");
    QTEST(wasChecked(), "staysChecked");
}

void TestDefinitionsUpdate::nothingIsTriedWithoutAddress()
{
    mUpdate->setAddresses({}, address(u"/new"_s));
    mUpdate->checkDaily();
    QCOMPARE(mQueue->numberOfRows(), 0);
    QVERIFY(!wasChecked());
}

void TestDefinitionsUpdate::onlyHttpsIsTrusted()
{
    QTest::ignoreMessage(QtWarningMsg,
                         "newer definitions come over https only, not from http://192.0.2.1/new");
    mUpdate->setAddresses(u"http://192.0.2.1/new"_s, {});
    mUpdate->checkDaily();
    QCOMPARE(mQueue->numberOfRows(), 0);
    QVERIFY(!wasChecked());
}

QTEST_GUILESS_MAIN(TestDefinitionsUpdate)
#include "tst_definitionsupdate.moc"
