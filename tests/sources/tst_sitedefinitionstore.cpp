#include "sources/sitedefinitionstore.h"

#include "base/folders.h"
#include "base/propertylist.h"
#include "base/resources.h"
#include "gathering/definitioncheck.h"
#include "sources/builtinsources.h"
#include "support/table.h"
#include "support/tempfiles.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>

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
    }

    void storedSetIsUsed_data()
    {
        const Table<QByteArray, QString, bool, QString> row("stored", "version", "isUsed", "log");
        const QString ours = QStringLiteral(TAGWRIGHT_VERSION);
        const auto xml = [](const QVariantMap &set) { return PropertyList::toXml(set); };
        row("of this release", xml(release(116)), ours, true, {});
        row("older", xml(release(115)), ours, false, {});
        row("without a number", xml({{u"genres"_s, QVariantList()}}), ours, false, {});
        row("of another version", xml(release(116)), u"0.0.9"_s, false, {});
        row("no property list", "<plist>", ours, false, {});
        row("with a fault", xml(release(116, {{u"res_FreeDBInterface"_s, badAddress}})), ours,
            false,
            u"stored definitions refused: "
            "res_FreeDBInterface/queryPOST is no http or https address"_s);
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
        writeFile(path, PropertyList::toXml(QVariantMap{{u"genres"_s, 7}}));
        QTest::ignoreMessage(QtWarningMsg,
                             "built-in definitions refused: genres is no list of texts");
        QVERIFY(store.liveResources().isEmpty());
        writeFile(path, PropertyList::toXml(QVariantMap{{u"genres"_s, QVariantList{u"Own"_s}}}));
        QCOMPARE(store.liveResources().genres(),
                 QStringList{u"Own"_s}); // the next call tried again
    }

    void newerSetIsMerged_data()
    {
        const Table<QByteArray, bool, QString> row("newer", "isMerged", "log");
        const QVariantMap genres{{u"genres"_s, QVariantList{u"Newer"_s}}};
        const auto xml = [](const QVariantMap &set) { return PropertyList::toXml(set); };
        row("of this release", xml(release(116, genres)), true, {});
        row("of an earlier one", xml(release(115, genres)), false, {});
        row("a list", PropertyList::toXml(QVariantList{116}), false, {});
        row("no property list", "<html>404</html>", false, {});
        QVariantMap faulty = release(117, genres);
        faulty[u"res_FreeDBInterface"_s] = badAddress;
        row("one fault refuses all of it", xml(faulty), false,
            u"newer definitions refused: res_FreeDBInterface/queryPOST is no http or https address"_s);
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
        QCOMPARE(store.mergeAndStore(newer), isMerged);
        SiteDefinitionStore atNextStart(*mSettings);
        for (SiteDefinitionStore *each : {&store, &atNextStart}) {
            QCOMPARE(each->liveResources().genres().size(), isMerged ? 1 : 192);
            QVERIFY(!each->liveResources().sourcelist().isEmpty()); // a key that the new set lacks
        }
    }

    void filesAreChecked_data()
    {
        const Table<QByteArray, QString> row("contents", "error");
        const QVariantMap set{{u"genres"_s, QVariantList{u"Own"_s}}};
        row("XML", PropertyList::toXml(set), {});
        row("binary, without a release number", PropertyList::toBinary(set), {});
        row("a key of the wrong type", PropertyList::toXml(QVariantMap{{u"sourcelist"_s, 7}}),
            u"sourcelist is no list of texts"_s);
        row("a text", PropertyList::toXml(u"text"_s), u"is no dictionary"_s);
        row("too large", QByteArray(3 << 20, ' '), u"is larger than 2 MB"_s);
    }
    void filesAreChecked()
    {
        QFETCH(QByteArray, contents);
        QFETCH(QString, error);
        const QString path = mFolder->filePath(u"set"_s);
        writeFile(path, contents);
        const auto loaded = SiteDefinitionStore::loadFile(path);
        QCOMPARE(loaded.error, error);
        QCOMPARE(loaded.definitions.isEmpty(), !error.isEmpty());
        QVERIFY(!SiteDefinitionStore::loadFile(path + u"no"_s).error.isEmpty());
    }

private:
    std::unique_ptr<QTemporaryDir> mFolder;
    std::unique_ptr<QSettings> mSettings;
};

QTEST_GUILESS_MAIN(TestSiteDefinitionStore)
#include "tst_sitedefinitionstore.moc"
