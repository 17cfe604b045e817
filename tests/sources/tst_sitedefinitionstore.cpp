#include "sources/sitedefinitionstore.h"

#include "base/folders.h"
#include "base/propertylist.h"
#include "base/resources.h"
#include "gathering/definitioncheck.h"
#include "sources/builtinsources.h"
#include "support/tempfiles.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QVariantMap release(const QVariant &number, QVariantMap values = {})
{
    values[u"latestReleaseNumber"_s] = number;
    return values;
}

const QVariantMap badAddress{{u"queryPOST"_s, u"file:///etc/passwd"_s}};

} // namespace

class TestSiteDefinitionStore : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void builtInSetHolds();
    void storedSetIsUsed_data();
    void storedSetIsUsed();
    void brokenSetOfTheUserIsLogged();
    void newerSetIsMerged_data();
    void newerSetIsMerged();
    void filesAreChecked_data();
    void filesAreChecked();

private:
    std::unique_ptr<QTemporaryDir> mFolder;
    std::unique_ptr<QSettings> mSettings;
};

void TestSiteDefinitionStore::init()
{
    mFolder = std::make_unique<QTemporaryDir>();
    qputenv("XDG_DATA_HOME", mFolder->path().toUtf8());
    mSettings = std::make_unique<QSettings>(mFolder->filePath(u"conf"_s), QSettings::IniFormat);
}

void TestSiteDefinitionStore::builtInSetHolds()
{
    SiteDefinitionStore store(*mSettings);
    const SiteDefinitions &live = store.liveResources();
    QCOMPARE(problemOfDefinitions(live.values()).value_or(QString()), QString());
    QCOMPARE(live.genres().size(), 192);
    const SourceCatalog catalog = builtInSources();
    const QStringList classes = live.sourcelist();
    QVERIFY(!classes.isEmpty());
    for (const QString &className : classes) {
        QVERIFY2(catalog.find(className), qPrintable(className));
        QVERIFY2(live.definitionOf(className), qPrintable(className));
    }
    QCOMPARE(catalog.find(u"FreeDBInterface"_s)->resourcesPossiblyAvailable.toInt(), 122U);
}

void TestSiteDefinitionStore::storedSetIsUsed_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QString>("version");
    QTest::addColumn<bool>("isUsed");
    QTest::addColumn<QString>("log");
    const QString ours = QStringLiteral(TAGWRIGHT_VERSION);
    const auto xml = [](const QVariantMap &set) { return PropertyList::toXml(set); };
    QTest::newRow("of this release") << xml(release(116)) << ours << true << QString();
    QTest::newRow("newer") << xml(release(117)) << ours << true << QString();
    QTest::newRow("binary, the number a text")
        << PropertyList::toBinary(release(u"116"_s)) << ours << true << QString();
    QTest::newRow("older") << xml(release(115)) << ours << false << QString();
    QTest::newRow("without a number")
        << xml({{u"genres"_s, QVariantList()}}) << ours << false << QString();
    QTest::newRow("of another version") << xml(release(116)) << u"0.0.9"_s << false << QString();
    QTest::newRow("no property list") << QByteArray("<plist>") << ours << false << QString();
    QTest::newRow("with a fault") << xml(release(116, {{u"res_FreeDBInterface"_s, badAddress}}))
                                  << ours << false
                                  << u"stored definitions refused: "
                                     "res_FreeDBInterface/queryPOST is no http or https address"_s;
}

void TestSiteDefinitionStore::storedSetIsUsed()
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

void TestSiteDefinitionStore::brokenSetOfTheUserIsLogged()
{
    QDir().mkpath(dataFolder());
    const QString path = dataFolder() + u"/defaultres.xml"_s;
    writeFile(path, "<plist><dict>");
    SiteDefinitionStore store(*mSettings);
    static const QRegularExpression decodeLine(u"^decode defres: ."_s);
    QTest::ignoreMessage(QtWarningMsg, decodeLine);
    QVERIFY(store.liveResources().isEmpty());
    writeFile(path, PropertyList::toXml(QVariantMap{{u"genres"_s, 7}}));
    QTest::ignoreMessage(QtWarningMsg, "built-in definitions refused: genres is no list of texts");
    QVERIFY(store.liveResources().isEmpty());
    writeFile(path, PropertyList::toXml(QVariantMap{{u"genres"_s, QVariantList{u"Own"_s}}}));
    QCOMPARE(store.liveResources().genres(), QStringList{u"Own"_s}); // the next call tried again
}

void TestSiteDefinitionStore::newerSetIsMerged_data()
{
    QTest::addColumn<QByteArray>("newer");
    QTest::addColumn<bool>("isMerged");
    QTest::addColumn<QString>("log");
    const QVariantMap genres{{u"genres"_s, QVariantList{u"Newer"_s}}};
    const auto xml = [](const QVariantMap &set) { return PropertyList::toXml(set); };
    QTest::newRow("of this release") << xml(release(116, genres)) << true << QString();
    QTest::newRow("of a later one") << xml(release(117, genres)) << true << QString();
    QTest::newRow("of an earlier one") << xml(release(115, genres)) << false << QString();
    QTest::newRow("of none") << xml(genres) << false << QString();
    QTest::newRow("a list") << PropertyList::toXml(QVariantList{116}) << false << QString();
    QTest::newRow("no property list") << QByteArray("<html>404</html>") << false << QString();
    QVariantMap faulty = release(117, genres);
    faulty[u"res_FreeDBInterface"_s] = badAddress;
    QTest::newRow("one fault refuses all of it")
        << xml(faulty) << false
        << u"newer definitions refused: res_FreeDBInterface/queryPOST is no http or https address"_s;
    QTest::newRow("too large") << xml(
        release(117, {{u"latestReleaseNotes"_s, QString(3 << 20, u'x')}}))
                               << false << u"newer definitions refused: is larger than 2 MB"_s;
}

void TestSiteDefinitionStore::newerSetIsMerged()
{
    QFETCH(QByteArray, newer);
    QFETCH(bool, isMerged);
    QFETCH(QString, log);
    if (!log.isEmpty())
        QTest::ignoreMessage(QtWarningMsg, qPrintable(log));
    SiteDefinitionStore store(*mSettings);
    QCOMPARE(store.mergeAndStore(newer), isMerged);
    SiteDefinitionStore atNextStart(*mSettings);
    for (SiteDefinitionStore *each : {&store, &atNextStart}) {
        QCOMPARE(each->liveResources().genres().size(), isMerged ? 1 : 192);
        QVERIFY(!each->liveResources().sourcelist().isEmpty()); // a key that the new set lacks
    }
}

void TestSiteDefinitionStore::filesAreChecked_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QString>("error"); // how it ends
    const QVariantMap set{{u"genres"_s, QVariantList{u"Own"_s}}};
    QTest::newRow("XML") << PropertyList::toXml(set) << QString();
    QTest::newRow("binary, without a release number") << PropertyList::toBinary(set) << QString();
    QTest::newRow("a key of the wrong type")
        << PropertyList::toXml(QVariantMap{{u"sourcelist"_s, 7}})
        << u": sourcelist is no list of texts"_s;
    QTest::newRow("a text") << PropertyList::toXml(u"text"_s) << u": is no dictionary"_s;
    QTest::newRow("too large") << QByteArray(3 << 20, ' ') << u": is larger than 2 MB"_s;
}

void TestSiteDefinitionStore::filesAreChecked()
{
    QFETCH(QByteArray, contents);
    QFETCH(QString, error);
    const QString path = mFolder->filePath(u"set"_s);
    writeFile(path, contents);
    const auto loaded = SiteDefinitionStore::loadFile(path);
    QCOMPARE(loaded.error, error.isEmpty() ? QString() : path + error);
    QCOMPARE(loaded.definitions.isEmpty(), !error.isEmpty());
    QVERIFY(SiteDefinitionStore::loadFile(path + u"no"_s).error.startsWith(path + u"no: "_s));
}

QTEST_GUILESS_MAIN(TestSiteDefinitionStore)
#include "tst_sitedefinitionstore.moc"
