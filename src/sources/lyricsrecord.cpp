#include "sources/lyricsrecord.h"

#include "sources/lyricspage.h"

#include <QJsonObject>

namespace {

QString wordsOf(const QJsonValue &text)
{
    return LyricsPage::withPlainNewlines(text.toString()).trimmed();
}

} // namespace

LyricsRecord LyricsRecord::fromJson(const QJsonValue &record)
{
    const QJsonObject values = record.toObject();
    const QJsonValue seconds = values[QLatin1String("duration")];
    return {.title = values[QLatin1String("trackName")].toString(),
            .artist = values[QLatin1String("artistName")].toString(),
            .album = values[QLatin1String("albumName")].toString(),
            .seconds = seconds.isDouble() ? std::optional(seconds.toDouble()) : std::nullopt,
            .plain = wordsOf(values[QLatin1String("plainLyrics")]),
            .synced = wordsOf(values[QLatin1String("syncedLyrics")]),
            .isInstrumental = values[QLatin1String("instrumental")].toBool()};
}
