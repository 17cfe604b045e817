#include "songs/librarytag.h"

#include "tags/aacinfotag.h"
#include "tags/mp3infotag.h"
#include "text/integervalue.h"

namespace {
// Numbers outside these are what the library holds for songs without a year.
constexpr int earliestYear = 1;
constexpr int latestYear = 2049;

std::unique_ptr<AudioInfoTag> bareTagOfKind(const QString &kind)
{
    if (kind == QLatin1String("MPEG audio file"))
        return std::make_unique<MP3InfoTag>();
    if (kind == QLatin1String("AAC audio file"))
        return std::make_unique<AACInfoTag>();
    return nullptr;
}

/// "N/M", or "N" where the count is missing or cannot be.
QString trackText(int number, int count)
{
    const QString text = QString::number(number);
    return count != 0 && number <= count ? text + QLatin1Char('/') + QString::number(count) : text;
}

void fillTexts(AudioInfoTag &tag, const QVariantMap &track)
{
    const auto fill = [&](const char *key, void (AudioInfoTag::*set)(const QString &)) {
        const auto found = track.constFind(QLatin1String(key));
        if (found != track.cend())
            (tag.*set)(found->toString());
    };
    fill("Name", &AudioInfoTag::setTitle);
    fill("Artist", &AudioInfoTag::setArtist);
    fill("Album", &AudioInfoTag::setAlbum);
    fill("Genre", &AudioInfoTag::setGenres);
}

void fillNumbers(AudioInfoTag &tag, const QVariantMap &track)
{
    const auto number = [&](const char *key) {
        return integerValue(track.value(QLatin1String(key)).toString());
    };
    const int year = number("Year");
    if (year >= earliestYear && year <= latestYear)
        tag.setYear(QString::number(year));
    if (const int onAlbum = number("Track Number"))
        tag.setTrack(trackText(onAlbum, number("Track Count")));
}
} // namespace

std::unique_ptr<AudioInfoTag> tagWithiTunesTrackInfo(const QVariantMap &track)
{
    auto tag = bareTagOfKind(track.value(QStringLiteral("Kind")).toString());
    if (!tag)
        return nullptr;
    fillTexts(*tag, track);
    fillNumbers(*tag, track);
    tag->setIsLazy(true);
    return tag;
}
