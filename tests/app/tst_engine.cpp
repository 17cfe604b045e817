#include "app/engine.h"

#include "base/folders.h"
#include "support/table.h"
#include "support/tempfiles.h"
#include "tags/genretable.h"
#include "text/simplifier.h"

#include <QDir>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class TestEngine : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        mHome = std::make_unique<QTemporaryDir>();
        qputenv("XDG_CONFIG_HOME", mHome->path().toUtf8());
        qputenv("XDG_CACHE_HOME", mHome->filePath(u"cache"_s).toUtf8());
    }

    void startInstallsWhatTheDefinitionsHold()
    {
        Engine engine(Engine::Pages::InMemory);
        engine.definitions.useDefinitions(SiteDefinitions(
            QVariantMap{{u"genres"_s, QStringList{u"Shanty"_s}},
                        {u"simplifiers"_s, QVariantMap{{u"shanties"_s, u"shanty"_s}}}}));
        engine.start(Engine::Definitions::Fixed);
        QCOMPARE(engine.queue.agentString(),
                 u"Tagwright/" TAGWRIGHT_VERSION " (like Safari/Gecko)"_s);
        QCOMPARE(GenreTable::genreForIndex(0), u"Shanty"_s);
        QCOMPARE(HVUtility::simplifyString(u"Sea Shanties"_s),
                 HVUtility::simplifyString(u"Sea Shanty"_s));
    }

    void cacheIsClearedWhenDefinitionsSaySo_data()
    {
        const Table<QVariant, bool> row("clearCacheAtLaunch", "isKept");
        row("yes", 1, false);
        row("no", 0, true);
        row("nothing said", {}, true);
    }
    void cacheIsClearedWhenDefinitionsSaySo()
    {
        QFETCH(QVariant, clearCacheAtLaunch);
        const QString ours = cacheFolder() + u"/pages"_s;
        const QString others = QFileInfo(cacheFolder()).path() + u"/somebody else"_s;
        QVERIFY(QDir().mkpath(ours));
        writeFile(ours + u"/page"_s, "page");
        writeFile(others, "precious");
        Engine engine;
        QVariantMap values;
        if (clearCacheAtLaunch.isValid())
            values.insert(u"clearCacheAtLaunch"_s, clearCacheAtLaunch);
        engine.definitions.useDefinitions(SiteDefinitions(values));
        engine.start(Engine::Definitions::Fixed);
        QTEST(QFileInfo::exists(ours + u"/page"_s), "isKept");
        QVERIFY(QFileInfo::exists(others));
    }

private:
    std::unique_ptr<QTemporaryDir> mHome;
};

QTEST_GUILESS_MAIN(TestEngine)
#include "tst_engine.moc"
