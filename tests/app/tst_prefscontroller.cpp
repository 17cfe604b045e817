#include "app/prefscontroller.h"

#include "base/folders.h"
#include "support/table.h"
#include "support/tempfiles.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

/// Each test begins with a settings folder of its own.
class TestPrefsController : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        mFolder = std::make_unique<QTemporaryDir>();
        qputenv("XDG_CONFIG_HOME", mFolder->path().toUtf8());
    }

    void newUserGetsSettingsOfTheirOwn()
    {
        {
            const PrefsController first;
        }
        QVERIFY(QFileInfo::exists(settingsFile()));
        PrefsController prefs;
        const GatheringOptions options = prefs.gatheringOptions();
        QCOMPARE(options.gather, gatherableAssets);
        QCOMPARE(options.overwrite, Assets());
        QCOMPARE(options.albumPickingMethod, AlbumPick::MostAgreement);
        QVERIFY(options.parallelSearch);
        QCOMPARE(options.overwriteImageThreshold, preferences::noLimit);
        QVERIFY(prefs.readOptions().dialect == ID3Dialect::standard());
        QCOMPARE(prefs.writeOptions().v24Sizes, FrameSizes::Accurate);
        QVERIFY(preferences::cacheSizeMB.value(prefs.settings()) > 0);
        QCOMPARE(prefs.settings().value(u"prefsVersion"_s).toInt(), 3);
        QCOMPARE(prefs.settings().value(u"albumPickingMethod"_s).toInt(), 2);
    }

    void oldSettingsReadAsTheyAlwaysDid()
    {
        writeSettings("drawerClosed=true\n");
        PrefsController prefs;
        const GatheringOptions options = prefs.gatheringOptions();
        QCOMPARE(options.gather, gatherableAssets);
        QCOMPARE(options.overwrite, Assets());
        QCOMPARE(options.albumPickingMethod, AlbumPick::None);
        QCOMPARE(options.allowSubstrings, Substrings::Refuse);
        QVERIFY(!options.parallelSearch);
        QCOMPARE(options.minimumImageSize, 100.0);
        QCOMPARE(options.maximumImageSize, 450.0);
        QCOMPARE(options.overwriteImageThreshold, preferences::overwriteSliderMaximum);
        QVERIFY(prefs.id3Dialect() == ID3Dialect::classic());
        QCOMPARE(prefs.writeOptions().v24Sizes, FrameSizes::Plain);
        QVERIFY(!prefs.settings().contains(u"prefsVersion"_s));
    }

    void optionsComeBackAsSaved()
    {
        GatheringOptions options;
        options.gather = AssetArtwork | AssetYear;
        options.overwrite = AssetLyrics | AssetTrack;
        options.albumPickingMethod = AlbumPick::EarliestYear;
        options.allowSubstrings = Substrings::Allow;
        options.parallelSearch = false;
        {
            PrefsController prefs;
            prefs.setGatheringOptions(options);
        }
        const GatheringOptions saved = PrefsController().gatheringOptions();
        QCOMPARE(saved.gather, options.gather);
        QCOMPARE(saved.overwrite, options.overwrite);
        QCOMPARE(saved.albumPickingMethod, options.albumPickingMethod);
        QCOMPARE(saved.allowSubstrings, options.allowSubstrings);
        QCOMPARE(saved.parallelSearch, options.parallelSearch);
    }

    void otherVersionsAreIgnored()
    {
        writeSettings("prefsVersion=2\ncheckYear=false\nalbumPickingMethod=1\nminImageSize=250\n");
        const GatheringOptions options = PrefsController().gatheringOptions();
        QCOMPARE(options.gather, gatherableAssets);
        QCOMPARE(options.albumPickingMethod, AlbumPick::None);
        QCOMPARE(options.minimumImageSize, 250.0); // has a key of its own
    }

    void unusableValuesReadAsUnset_data()
    {
        const Table<QByteArray> row("line");
        row("no number", "maxImageSize=large");
        row("pictures of no size", "maxImageSize=0");
        row("a method there is none of", "prefsVersion=3\nalbumPickingMethod=9");
        row("a dialect there is none of", "id3Dialect=fancy");
    }
    void unusableValuesReadAsUnset()
    {
        QFETCH(QByteArray, line);
        writeSettings(line + '\n');
        const PrefsController prefs;
        QCOMPARE(prefs.gatheringOptions().maximumImageSize, 450.0);
        QCOMPARE(prefs.gatheringOptions().albumPickingMethod, AlbumPick::None);
        QVERIFY(prefs.id3Dialect() == ID3Dialect::classic());
    }

    void useDefaultsForgetsSevenSettings()
    {
        const QStringList forgotten{u"minImageSize"_s,       u"maxImageSize"_s,
                                    u"cacheSizeMB"_s,        u"overwriteImageThreshold"_s,
                                    u"id3v24Accurate"_s,     u"ignoreNonSquareArt"_s,
                                    u"keepiTunesRefreshed"_s};
        PrefsController prefs;
        for (const QString &key : forgotten)
            prefs.settings().setValue(key, 1);
        prefs.useDefaults();
        for (const QString &key : forgotten)
            QVERIFY(!prefs.settings().contains(key));
        QVERIFY(prefs.settings().contains(u"checkYear"_s));
    }

private:
    static void writeSettings(const QByteArray &lines);

    std::unique_ptr<QTemporaryDir> mFolder;
};

void TestPrefsController::writeSettings(const QByteArray &lines)
{
    QVERIFY(QDir().mkpath(QFileInfo(settingsFile()).path()));
    writeFile(settingsFile(), "[General]\n" + lines);
}

QTEST_GUILESS_MAIN(TestPrefsController)
#include "tst_prefscontroller.moc"
