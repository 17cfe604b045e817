#include "app/sourcechoices.h"

#include "app/prefscontroller.h"

namespace {

const QLatin1String lyricsService("res_LRCLIBInterface");

} // namespace

SiteDefinitions definitionsAsChosen(const SiteDefinitions &definitions, const QSettings &settings)
{
    QVariantMap values = definitions.values();
    if (preferences::syncedLyrics.value(settings) && values.contains(lyricsService)) {
        QVariantMap definition = values[lyricsService].toMap();
        definition[QStringLiteral("syncedLyrics")] = true;
        values[lyricsService] = definition;
    }
    return SiteDefinitions(values);
}
