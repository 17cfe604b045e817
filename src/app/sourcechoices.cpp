#include "app/sourcechoices.h"

#include "app/prefscontroller.h"

namespace {

const QString sourcelist = QStringLiteral("sourcelist");
const QString lyricsSource = QStringLiteral("LRCLIBInterface");
const QString shopSource = QStringLiteral("DeezerInterface");

QString definitionKey(const QString &className)
{
    return QStringLiteral("res_") + className;
}

void keepTimesOfLyrics(QVariantMap &values)
{
    const auto found = values.find(definitionKey(lyricsSource));
    if (found == values.end())
        return;
    QVariantMap definition = found->toMap();
    definition[QStringLiteral("syncedLyrics")] = true;
    *found = definition;
}

/// Behind the services that need no choice, before the sites.
void askShop(QVariantMap &values)
{
    QVariantList sources = values[sourcelist].toList();
    if (sources.contains(shopSource) || !values.contains(definitionKey(shopSource)))
        return;
    sources.insert(sources.indexOf(lyricsSource) + 1, shopSource);
    values[sourcelist] = sources;
}

} // namespace

SiteDefinitions definitionsAsChosen(const SiteDefinitions &definitions, const QSettings &settings)
{
    QVariantMap values = definitions.values();
    if (preferences::syncedLyrics.value(settings))
        keepTimesOfLyrics(values);
    if (preferences::useDeezer.value(settings))
        askShop(values);
    return SiteDefinitions(values);
}
