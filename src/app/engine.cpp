#include "app/engine.h"

#include "app/sharedtables.h"
#include "base/folders.h"
#include "sources/builtinsources.h"

#include <QDir>

#include <algorithm>

namespace {
/// Longer pages are cut; what sources look for stands before.
constexpr qint64 maximumHTMLLength = 500'000; // bytes
constexpr qint64 bytesInMB = 1'048'576;
constexpr int maximumCacheSizeMB = 1'000'000; // more overflows nothing and is no limit either
/// A pace slower than this is a mistake in the definitions and would look like a standstill.
constexpr double maximumMinInterval = 60; // seconds

/// The hosts of the addresses in a definition, most of which are formats.
QStringList hostsOf(const SiteDefinition &definition)
{
    QStringList hosts;
    for (const QVariant &value : definition.values()) {
        const QString text = value.toString();
        if (text.startsWith(QLatin1String("http")))
            hosts << QUrl(text).host();
    }
    hosts.removeAll(QString());
    return hosts;
}

/// The time between two requests to each host, as the slowest of its sources asks for; 0 for
/// hosts without a pace, which takes back what earlier definitions asked for.
QMap<QString, std::chrono::milliseconds> minIntervals(const SiteDefinitions &definitions)
{
    QMap<QString, std::chrono::milliseconds> intervals;
    for (const QString &className : definitions.sourcelist()) {
        const auto definition = definitions.definitionOf(className);
        if (!definition)
            continue;
        const double seconds = definition->number(QStringLiteral("minInterval"));
        const double bounded = seconds > 0 ? std::min(seconds, maximumMinInterval) : 0;
        const std::chrono::milliseconds interval(qRound64(bounded * 1000));
        for (const QString &host : hostsOf(*definition))
            intervals[host] = std::max(intervals.value(host), interval);
    }
    return intervals;
}

/// Our folder alone, whatever else lies beside it.
void clearCache(const SiteDefinitions &definitions)
{
    if (definitions.values().value(QStringLiteral("clearCacheAtLaunch")).toInt() != 0)
        QDir(cacheFolder()).removeRecursively();
}
} // namespace

Engine::Engine(Pages pages)
    : definitions(prefs.settings())
    , queue(pages == Pages::OnDisk ? cacheFolder() + QStringLiteral("/pages") : QString())
    , catalog(builtInSources())
    , update(definitions, prefs.settings(), queue)
{
}

void Engine::start(Definitions which)
{
    clearCache(definitions.liveResources());
    setUpQueue();
    adoptDefinitions();
    QObject::connect(&update, &DefinitionsUpdate::merged, &update, [this] { adoptDefinitions(); });
    if (which == Definitions::Live)
        update.checkDaily();
}

void Engine::setUpQueue()
{
    queue.setAgentString(QStringLiteral("Tagwright/" TAGWRIGHT_VERSION " (like Safari/Gecko)"));
    queue.setMaximumHTMLLength(maximumHTMLLength);
    // Unset reads as 0, which would do without a disk cache; the queue's own size stands then.
    const QSettings &settings = prefs.settings();
    if (preferences::cacheSizeMB.isSet(settings)) {
        const int megabytes = preferences::cacheSizeMB.value(settings);
        queue.setCacheDiskCapacity(std::clamp(megabytes, 0, maximumCacheSizeMB) * bytesInMB);
    }
    QObject::connect(&queue, &HVHTTPQueue::importantLog, &log,
                     [this](const QString &line) { log.addLog(line, LogColor::Error); });
}

void Engine::adoptDefinitions()
{
    const SiteDefinitions &live = definitions.liveResources();
    installTables(live);
    const auto intervals = minIntervals(live);
    for (auto pace = intervals.cbegin(); pace != intervals.cend(); ++pace)
        queue.setMinInterval(pace.key(), pace.value());
}
