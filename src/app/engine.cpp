#include "app/engine.h"

#include "app/sharedtables.h"
#include "itunes/systemrunner.h"
#include "sources/builtinsources.h"

#include <QDir>

#include <algorithm>

namespace {
/// Longer pages are cut; what sources look for stands before.
constexpr qint64 maximumHTMLLength = 500'000; // bytes
constexpr qint64 bytesInMB = 1'048'576;
constexpr int maximumCacheSizeMB = 1'000'000; // no limit either, and its bytes can be counted

/// Our folder alone, whatever else lies beside it.
void clearCache(const SiteDefinitions &definitions)
{
    if (definitions.values().value(QStringLiteral("clearCacheAtLaunch")).toInt() != 0)
        QDir(cacheFolder()).removeRecursively();
}
} // namespace

Engine::Engine(Pages pages, const QString &settings)
    : prefs(settings)
    , definitions(prefs.settings())
    , queue(pages == Pages::OnDisk ? cacheFolder() + QStringLiteral("/pages") : QString())
    , catalog(builtInSources())
    , scriptRunner(systemScriptRunner(usualMusicPlaces(prefs.movedFolders())))
    , itunes(*scriptRunner)
    , infoCache(pages == Pages::OnDisk ? songInfoFolder() : QString())
    , update(definitions, prefs.settings(), queue)
{
}

void Engine::start(Definitions which)
{
    clearCache(definitions.liveResources());
    setUpQueue();
    const auto install = [this] { installTables(definitions.liveResources()); };
    install();
    QObject::connect(&update, &DefinitionsUpdate::merged, &update, install);
    if (which == Definitions::Live)
        update.checkDaily();
}

void Engine::setUpQueue()
{
    queue.setAgentString(QStringLiteral("Tagwright/" TAGWRIGHT_VERSION " (like Safari/Gecko)"));
    queue.setMaximumHTMLLength(maximumHTMLLength);
    adoptCacheSize();
    QObject::connect(&queue, &HVHTTPQueue::importantLog, &log,
                     [this](const QString &line) { log.addLog(line, LogColor::Error); });
}

void Engine::adoptCacheSize()
{
    // Unset reads as 0, which would do without a disk cache; the queue's own size stands then.
    const QSettings &settings = prefs.settings();
    if (preferences::cacheSizeMB.isSet(settings)) {
        const int megabytes = preferences::cacheSizeMB.value(settings);
        queue.setCacheDiskCapacity(std::clamp(megabytes, 0, maximumCacheSizeMB) * bytesInMB);
    }
}
