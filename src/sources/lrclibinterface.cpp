#include "sources/lrclibinterface.h"

#include "sources/serviceaddress.h"
#include "text/lyricscleanup.h"
#include "text/simplifier.h"
#include "text/syncedlyrics.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>
#include <vector>

namespace {

const QLatin1String trackName("track_name");
const QLatin1String artistName("artist_name");

// The service refuses other lengths.
constexpr qint64 shortestSong = 1; // seconds
constexpr qint64 longestSong = 3600;

/// It gives 20 at most.
constexpr qsizetype mostResults = 100;

} // namespace

LRCLIBInterface::LRCLIBInterface(SiteDefinition resources, HVHTTPQueue &queue,
                                 std::shared_ptr<Instrumentals> instrumentals)
    : LyricsSource(std::move(resources), queue)
    , mInstrumentals(std::move(instrumentals))
{
}

/// A song that was told to be an instrumental stays one in all its copies: of another length or
/// album it would be asked for anew.
void LRCLIBInterface::startSearch()
{
    if (!knowsSong())
        return;
    if (mInstrumentals->contains(names()))
        return addInstrumental();
    QueryParameters query{{trackName, *songTitle()}, {artistName, *artist()}};
    if (albumTitle())
        query << std::pair(QLatin1String("album_name"), *albumTitle());
    const qint64 seconds = std::llround(double(songDuration().value_or(0)) / 1000);
    if (seconds >= shortestSong && seconds <= longestSong)
        query << std::pair(QLatin1String("duration"), QString::number(seconds));
    addSearchURL(serviceAddress(resources().textOrEmpty(QStringLiteral("recordURL")), query),
                 [this](const FetchResult &result) { gotRecord(result); });
}

/// A service that fails is not asked for more, but one that has no such song, or does not take
/// what a tag says for one, may find it under less.
void LRCLIBInterface::gotRecord(const FetchResult &result)
{
    const auto answer = jsonPage(result);
    if (answer ? !report(LyricsRecord::fromJson(answer->object()))
               : result.status == 404 || result.status == 400)
        searchForSong();
}

void LRCLIBInterface::searchForSong()
{
    addSearchURL(serviceAddress(resources().textOrEmpty(QStringLiteral("searchURL")),
                                {{trackName, *songTitle()}, {artistName, *artist()}}),
                 [this](const FetchResult &result) { gotResults(result); });
}

void LRCLIBInterface::gotResults(const FetchResult &result)
{
    const auto answer = jsonPage(result);
    if (!answer)
        return;
    const QJsonArray results = answer->array();
    if (results.isEmpty())
        keepForThisRun(result);
    const QList<LyricsRecord> records = fitting(results);
    std::any_of(records.begin(), records.end(),
                [this](const LyricsRecord &record) { return report(record); });
}

/// Those of the song, the likeliest first.
QList<LyricsRecord> LRCLIBInterface::fitting(const QJsonArray &results) const
{
    using HVUtility::simplifyString;
    const QString album = simplifyString(albumTitle().value_or(QString()));
    const auto rank = [&](const LyricsRecord &record) {
        return std::tuple(!isSameArtist(simplifyString(record.artist)),
                          distance(record).value_or(std::numeric_limits<double>::max()),
                          !record.hasWords(), simplifyString(record.album) != album);
    };
    std::vector<std::pair<decltype(rank({})), LyricsRecord>> ranked;
    for (qsizetype i = 0; i < std::min(results.size(), mostResults); ++i) {
        LyricsRecord record = LyricsRecord::fromJson(results[i]);
        // An instrumental of another length may be made of a song with words.
        if ((record.hasWords() || !hasOtherLength(record))
            && isSongTitle(simplifyString(record.title))
            && isListedArtist(simplifyString(record.artist)))
            ranked.emplace_back(rank(record), std::move(record));
    }
    std::stable_sort(ranked.begin(), ranked.end(),
                     [](const auto &one, const auto &other) { return one.first < other.first; });
    QList<LyricsRecord> records;
    for (auto &[ignored, record] : ranked)
        records << std::move(record);
    return records;
}

std::optional<double> LRCLIBInterface::distance(const LyricsRecord &record) const
{
    if (!songDuration() || !record.seconds)
        return std::nullopt;
    return std::abs(double(*songDuration()) / 1000 - *record.seconds);
}

bool LRCLIBInterface::hasOtherLength(const LyricsRecord &record) const
{
    return distance(record).value_or(0) > resources().number(QStringLiteral("durationTolerance"));
}

bool LRCLIBInterface::report(const LyricsRecord &record)
{
    if (record.hasWords())
        return addLyrics(LyricsCleanup::cleanUpLyrics(textOf(record)));
    if (record.isInstrumental) {
        mInstrumentals->insert(names());
        addInstrumental();
    }
    return record.isInstrumental;
}

std::pair<QString, QString> LRCLIBInterface::names() const
{
    return {HVUtility::simplifyString(*artist()), HVUtility::simplifyString(*songTitle())};
}

QString LRCLIBInterface::textOf(const LyricsRecord &record) const
{
    if (canBeSynced(record))
        return record.synced;
    return record.plain.isEmpty() ? SyncedLyrics::withoutTimes(record.synced) : record.plain;
}

/// The times of another recording, or of a song that goes on when this one is over, are wrong.
bool LRCLIBInterface::canBeSynced(const LyricsRecord &record) const
{
    if (resources().integer(QStringLiteral("syncedLyrics")) == 0 || record.synced.isEmpty()
        || hasOtherLength(record))
        return false;
    const double end =
        songDuration() ? double(*songDuration()) / 1000 : std::numeric_limits<double>::max();
    return SyncedLyrics::lastTime(record.synced)
        <= end + resources().number(QStringLiteral("durationTolerance"));
}
