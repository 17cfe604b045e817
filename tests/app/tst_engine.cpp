#include "app/engine.h"

#include "app/prefscontroller.h"
#include "base/folders.h"
#include "support/tempfiles.h"
#include "tags/genretable.h"
#include "text/simplifier.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// Each test begins with folders of its own.
class TestEngine : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        mFolder = std::make_unique<QTemporaryDir>();
        qputenv("XDG_CONFIG_HOME", mFolder->path().toUtf8());
        qputenv("XDG_CACHE_HOME", mFolder->filePath(u"cache"_s).toUtf8());
    }

    void newUserGetsSettingsOfTheirOwn()
    {
        PrefsController();
        QVERIFY(QFileInfo::exists(settingsFile()));
        PrefsController prefs;
        const GatheringOptions options = prefs.gatheringOptions();
        QCOMPARE(options.gather, gatherableAssets);
        QCOMPARE(options.overwrite, Assets());
        QCOMPARE(options.albumPickingMethod, AlbumPick::Best);
        QVERIFY(options.parallelSearch);
        QVERIFY(prefs.readOptions().dialect == ID3Dialect::standard());
        QCOMPARE(prefs.writeOptions().v24Sizes, FrameSizes::Accurate);
        QCOMPARE(prefs.settings().value(u"prefsVersion"_s).toInt(), 3);
    }

    void oldSettingsReadAsTheyAlwaysDid()
    {
        writeSettings("drawerClosed=true\n");
        PrefsController prefs;
        const GatheringOptions options = prefs.gatheringOptions();
        QCOMPARE(options.gather, gatherableAssets);
        QCOMPARE(options.overwrite, Assets());
        QCOMPARE(options.albumPickingMethod, AlbumPick::None);
        QVERIFY(!options.parallelSearch);
        QCOMPARE(options.maximumImageSize, 450.0);
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
        PrefsController().setGatheringOptions(options);
        const auto tied = [](const GatheringOptions &all) {
            return std::tuple(all.gather, all.overwrite, all.albumPickingMethod,
                              all.allowSubstrings, all.parallelSearch);
        };
        QVERIFY(tied(PrefsController().gatheringOptions()) == tied(options));
    }

    void otherVersionsAreIgnored()
    {
        writeSettings("prefsVersion=2\ncheckYear=false\nminImageSize=250\n");
        QCOMPARE(PrefsController().gatheringOptions().gather, gatherableAssets);
        QCOMPARE(PrefsController().gatheringOptions().minimumImageSize, 250.0); // of its own
    }

    void unusableValuesReadAsUnset()
    {
        for (const char *maximum : {"large", "0"}) {
            writeSettings(QByteArray("maxImageSize=") + maximum
                          + "\nprefsVersion=3\nalbumPickingMethod=9\nid3Dialect=fancy\n");
            const PrefsController prefs;
            QCOMPARE(prefs.gatheringOptions().maximumImageSize, 450.0);
            QCOMPARE(prefs.gatheringOptions().albumPickingMethod, AlbumPick::None);
            QVERIFY(prefs.id3Dialect() == ID3Dialect::classic());
        }
    }

    void foldersOfAnotherMachine()
    {
        writeSettings("[movedFolders]\n1\\from=file:///Users/ana/Music\n1\\to=\"/m, n\"\n"
                      "2\\from=C:/Music\n2\\to=\n3\\from=/x\n3\\to=/y\n");
        const MovedFolders moved = PrefsController().movedFolders();
        QCOMPARE(moved.pathHere(u"/Users/ana/Music/a.mp3"_s), u"/m, n/a.mp3"_s);
        QCOMPARE(moved.pathHere(u"/C:/Music/a.mp3"_s), u"/C:/Music/a.mp3"_s);
        QCOMPARE(moved.pathHere(u"/x/a.mp3"_s), u"/y/a.mp3"_s);
    }

    void startInstallsWhatTheDefinitionsHold()
    {
        Engine engine(Engine::Pages::InMemory);
        engine.definitions.useDefinitions(SiteDefinitions(
            QVariantMap{{u"genres"_s, QStringList{u"Shanty"_s}},
                        {u"simplifiers"_s, QVariantMap{{u"shanties"_s, u"shanty"_s}}}}));
        engine.start(Engine::Definitions::Fixed);
        QCOMPARE(GenreTable::genreForIndex(0), u"Shanty"_s);
        QCOMPARE(HVUtility::simplifyString(u"Sea Shanties"_s),
                 HVUtility::simplifyString(u"Sea Shanty"_s));
    }

    void cacheIsClearedWhenDefinitionsSaySo()
    {
        const QString ours = cacheFolder() + u"/pages"_s;
        const QString others = QFileInfo(cacheFolder()).path() + u"/somebody else"_s;
        QVERIFY(QDir().mkpath(ours));
        writeFile(ours + u"/page"_s, "page");
        writeFile(others, "precious");
        for (const QVariant &clear : {QVariant(0), QVariant(), QVariant(1)}) {
            QVERIFY(QFileInfo::exists(ours + u"/page"_s));
            Engine engine;
            engine.definitions.useDefinitions(
                SiteDefinitions(QVariantMap{{u"clearCacheAtLaunch"_s, clear}}));
            engine.start(Engine::Definitions::Fixed);
        }
        QVERIFY(!QFileInfo::exists(ours + u"/page"_s));
        QVERIFY(QFileInfo::exists(others));
    }

private:
    static void writeSettings(const QByteArray &lines)
    {
        QVERIFY(QDir().mkpath(QFileInfo(settingsFile()).path()));
        writeFile(settingsFile(), "[General]\n" + lines);
    }

    std::unique_ptr<QTemporaryDir> mFolder;
};

QTEST_GUILESS_MAIN(TestEngine)
#include "tst_engine.moc"
