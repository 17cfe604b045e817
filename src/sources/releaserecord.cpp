#include "sources/releaserecord.h"

#include "gathering/fittinggenre.h"
#include "sources/releasecandidate.h"

#include <QJsonArray>

#include <algorithm>
#include <functional>

namespace {

QLatin1String key(const char *name)
{
    return QLatin1String(name);
}

/// Names by votes, the most first.
QStringList namesByVotes(QJsonArray voted)
{
    QList<std::pair<int, QString>> names;
    for (const QJsonValue &each : std::as_const(voted))
        names << std::pair(-each[key("count")].toInt(), each[key("name")].toString());
    std::stable_sort(names.begin(), names.end(),
                     [](const auto &one, const auto &other) { return one.first < other.first; });
    QStringList sorted;
    for (const auto &[votes, name] : std::as_const(names))
        if (!name.isEmpty())
            sorted << name;
    return sorted;
}

ReleaseRecord::Medium mediumOf(const QJsonValue &listed)
{
    ReleaseRecord::Medium medium;
    const QJsonArray tracks = listed[key("tracks")].toArray();
    for (const QJsonValue &track : tracks) {
        const QJsonValue recording = track[key("recording")];
        const QString title = track[key("title")].toString();
        medium.titles << (title.isEmpty() ? recording[key("title")].toString() : title);
        const qint64 length = track[key("length")].toInteger();
        medium.lengths << std::max<qint64>(
            0, length > 0 ? length : recording[key("length")].toInteger());
        medium.artists << creditedArtist(track.toObject());
        medium.firstDates << recording[key("first-release-date")].toString();
    }
    return medium;
}

/// Unless none of them fits.
template<typename Fits>
void keepSome(QList<ReleaseRecord::Medium> &media, Fits fits)
{
    if (std::any_of(media.begin(), media.end(), fits))
        media.removeIf(std::not_fn(fits));
}

} // namespace

std::optional<QString> votedGenre(const QJsonObject &release)
{
    const QJsonObject group = release[key("release-group")].toObject();
    QStringList names;
    for (const auto &kind : {key("genres"), key("tags")})
        for (const QJsonObject &voted : {release, group})
            names << namesByVotes(voted[kind].toArray());
    if (const auto genre = fittingGenre(names))
        return genre;
    // A tag that is no genre may be anything.
    const QStringList genres = namesByVotes(release[key("genres")].toArray())
        + namesByVotes(group[key("genres")].toArray());
    return genres.isEmpty() ? std::nullopt : std::optional(genres.first());
}

std::optional<ReleaseRecord> releaseRecordOf(const QJsonObject &answer)
{
    ReleaseRecord record;
    const QJsonObject group = answer[key("release-group")].toObject();
    const QJsonValue hasFront = answer[key("cover-art-archive")][key("front")];
    record.identifiers = {.release = identifierOf(answer[key("id")]),
                          .releaseGroup = identifierOf(group[key("id")]),
                          .hasNoFront = !hasFront.toBool(true)};
    record.title = answer[key("title")].toString();
    if (record.identifiers.release.isEmpty() || record.title.isEmpty())
        return std::nullopt;
    record.artist = creditedArtist(answer);
    record.date = answer[key("date")].toString();
    record.firstDate = group[key("first-release-date")].toString();
    record.year = yearOfDate(record.firstDate);
    if (!record.year)
        record.year = yearOfDate(record.date);
    record.genre = votedGenre(answer);
    record.isPlainAlbum = isPlainAlbum(answer);
    const QJsonArray media = answer[key("media")].toArray();
    for (const QJsonValue &listed : media)
        if (ReleaseRecord::Medium medium = mediumOf(listed); !medium.titles.isEmpty())
            record.media << std::move(medium);
    return record;
}

std::optional<ReleaseRecord::Medium> ReleaseRecord::mediumFor(const SoughtTrack &track) const
{
    return track.title ? mediumWithTitle(track) : mediumWithNumber(track);
}

/// Where several hold it, such as an album and its demos, that of the song's length.
std::optional<ReleaseRecord::Medium> ReleaseRecord::mediumWithTitle(const SoughtTrack &track) const
{
    std::optional<Medium> first;
    for (const Medium &medium : media) {
        const int number = albumWith(medium).numberOfTrackNamed(*track.title, track.substrings);
        if (number == 0)
            continue;
        if (!isOtherVersion(track.duration, medium.lengths.value(number - 1)))
            return medium;
        if (!first)
            first = medium;
    }
    return first;
}

/// A file is numbered on its disc, or on all discs in a row: as many tracks as its tag says, then
/// the track's length tell which. A title is not guessed.
std::optional<ReleaseRecord::Medium> ReleaseRecord::mediumWithNumber(const SoughtTrack &track) const
{
    if (media.size() == 1)
        return media.first();
    const qsizetype at = track.number - 1;
    QList<Medium> possible = media + QList{allInARow()};
    possible.removeIf([&](const Medium &each) { return at < 0 || each.titles.size() <= at; });
    keepSome(possible, [&](const Medium &each) { return each.titles.size() == track.of; });
    keepSome(possible, [&](const Medium &each) {
        return !isOtherVersion(track.duration, each.lengths.value(at));
    });
    const bool agree = std::all_of(possible.begin(), possible.end(), [&](const Medium &each) {
        return each.titles.at(at) == possible.first().titles.at(at);
    });
    return agree && !possible.isEmpty() ? std::optional(possible.first()) : std::nullopt;
}

bool ReleaseRecord::lacks(const SoughtTrack &track) const
{
    if (track.title)
        return !mediumWithTitle(track);
    return !media.isEmpty() && track.number > allInARow().titles.size();
}

ReleaseRecord::Medium ReleaseRecord::allInARow() const
{
    Medium all;
    for (const Medium &medium : media) {
        all.titles << medium.titles;
        all.lengths << medium.lengths;
    }
    return all;
}

AlbumInfo ReleaseRecord::albumWith(const std::optional<Medium> &medium) const
{
    AlbumInfo album;
    album.setName(title);
    album.setArtist(artist);
    album.setYear(year);
    album.setGenres(genre);
    album.setIdentifiers(identifiers);
    if (medium) {
        album.setTrackNames(medium->titles);
        album.setTrackLengths(medium->lengths);
    }
    return album;
}
