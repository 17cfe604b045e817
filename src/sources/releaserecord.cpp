#include "sources/releaserecord.h"

#include "gathering/fittinggenre.h"
#include "sources/releasecandidate.h"

#include <QJsonArray>

#include <algorithm>

namespace {

constexpr qsizetype yearDigits = 4;

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
    }
    return medium;
}

} // namespace

std::optional<QString> yearOfDate(const QJsonValue &date)
{
    const QString year = date.toString().left(yearDigits);
    bool isNumber = false;
    const int number = year.toInt(&isNumber);
    return isNumber && number > 999 ? std::optional(year) : std::nullopt;
}

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
    record.year = yearOfDate(group[key("first-release-date")]);
    if (!record.year)
        record.year = yearOfDate(answer[key("date")]);
    record.genre = votedGenre(answer);
    record.isPlainAlbum = isPlainAlbum(answer);
    const QJsonArray media = answer[key("media")].toArray();
    for (const QJsonValue &listed : media)
        if (ReleaseRecord::Medium medium = mediumOf(listed); !medium.titles.isEmpty())
            record.media << std::move(medium);
    return record;
}

qsizetype ReleaseRecord::mediumOf(const std::optional<QString> &songTitle,
                                  Substrings allowSubstrings) const
{
    if (!songTitle)
        return media.size() == 1 ? 0 : -1;
    for (qsizetype medium = 0; medium < media.size(); ++medium)
        if (albumWithMedium(medium).numberOfTrackNamed(*songTitle, allowSubstrings) > 0)
            return medium;
    return -1;
}

AlbumInfo ReleaseRecord::albumWithMedium(qsizetype medium) const
{
    AlbumInfo album;
    album.setName(title);
    album.setArtist(artist);
    album.setYear(year);
    album.setGenres(genre);
    album.setIdentifiers(identifiers);
    if (medium >= 0) {
        album.setTrackNames(media[medium].titles);
        album.setTrackLengths(media[medium].lengths);
    }
    return album;
}
