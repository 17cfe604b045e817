#include "sources/releasecandidate.h"

#include "text/simplifier.h"
#include "text/stringextensions.h"

#include <QHash>
#include <QJsonArray>
#include <QSet>
#include <QUuid>

#include <algorithm>
#include <tuple>

using HVUtility::simplifyString;

namespace {

/// Recordings of one song that differ more are different versions of it.
constexpr qint64 mostDifference = 7'000; // milliseconds

constexpr int ofOtherVersion = 2; // how unlike the song it is

constexpr qsizetype yearDigits = 4;

/// Behind every date.
const QString noDate = QStringLiteral("~");

enum OddKind { ownAlbum, shorterRelease, otherRelease, specialAlbum, collection };

QLatin1String key(const char *name)
{
    return QLatin1String(name);
}

bool isSecondaryType(const QJsonObject &group, const char *type)
{
    return group[key("secondary-types")].toArray().contains(QJsonValue(key(type)));
}

OddKind kindOf(const QJsonObject &release)
{
    const QJsonObject group = release[key("release-group")].toObject();
    const QString primary = group[key("primary-type")].toString();
    if (isSecondaryType(group, "Compilation") || isSecondaryType(group, "DJ-mix"))
        return collection;
    if (!group[key("secondary-types")].toArray().isEmpty())
        return specialAlbum;
    if (primary == key("Album"))
        return ownAlbum;
    return primary == key("EP") || primary == key("Single") ? shorterRelease : otherRelease;
}

/// For a song that is on one, collections and soundtracks come first.
int oddnessOf(const QJsonObject &release, bool isOnCompilation)
{
    const OddKind kind = kindOf(release);
    const QJsonObject group = release[key("release-group")].toObject();
    const bool isSought = kind == collection || isSecondaryType(group, "Soundtrack");
    return isOnCompilation && isSought ? 0 : kind + (isOnCompilation ? 1 : 0);
}

int unofficialityOf(const QJsonObject &release)
{
    const QString status = release[key("status")].toString();
    if (status == key("Official"))
        return 0;
    return status == key("Bootleg") || status == key("Pseudo-Release") ? 2 : 1;
}

QString withoutBrackets(const QString &name)
{
    using namespace HVStringExtensions;
    return simplifyString(
        stringWithStrippedBracketedText(stringWithStrippedParenthesizedText(name)));
}

/// The artists of a compilation are those of its songs.
bool isByArtist(const QJsonObject &entity, const ReleaseWish &wish)
{
    return matchesListedArtist(wish.artist, simplifyString(creditedArtist(entity)),
                               wish.substrings);
}

QString dateOf(const QJsonObject &release)
{
    const QString date = release[key("date")].toString();
    return date.isEmpty() ? noDate : date;
}

ReleaseCandidate candidateOf(const QJsonObject &release, const ReleaseWish &wish)
{
    return {.id = identifierOf(release[key("id")]),
            .group = identifierOf(release[key("release-group")].toObject()[key("id")]),
            .title = release[key("title")].toString(),
            .artist = creditedArtist(release),
            .date = dateOf(release),
            .media = release[key("count")].toInt(),
            .tracks = release[key("track-count")].toInt(),
            .unlikeAlbum = unlikenessOfAlbum(release[key("title")].toString(), wish),
            .unofficial = unofficialityOf(release),
            .oddKind = oddnessOf(release, wish.isCompilation)};
}

/// Why the candidate cannot be the song's, which is credited and scored as `found`.
std::optional<AlbumFate> unfitness(const ReleaseCandidate &candidate, const QJsonObject &found,
                                   const ReleaseWish &wish, bool mayBeByAnyone)
{
    if (!mayBeByAnyone && !isByArtist(found, wish))
        return AlbumFate::ByOtherArtist;
    if (candidate.unlikeSong == unfit)
        return AlbumFate::OfOtherTitle;
    if (candidate.unlikeAlbum == unfit)
        return AlbumFate::OfOtherName;
    if (found[key("score")].toDouble(100) < wish.minScore)
        return AlbumFate::LittleAlike;
    return std::nullopt;
}

void addCandidate(ReleaseFindings &findings, ReleaseCandidate candidate)
{
    if (!candidate.id.isEmpty())
        (candidate.fate ? findings.unfit : findings.fitting) << std::move(candidate);
}

/// Leaves out what is among `seen`, which grows.
void keepNew(QList<ReleaseCandidate> &candidates, QSet<QString> &seen)
{
    candidates.removeIf([&](const ReleaseCandidate &each) {
        const bool isRepeated = seen.contains(each.id);
        seen.insert(each.id);
        return isRepeated;
    });
}

QHash<QString, QString> earliestDates(const QList<ReleaseCandidate> &candidates)
{
    QHash<QString, QString> earliest;
    for (const ReleaseCandidate &each : candidates) {
        QString &date = earliest[each.group];
        date = date.isEmpty() ? each.date : std::min(date, each.date);
    }
    return earliest;
}

/// The work that came first, and of that the edition with the fewest discs: files are numbered as
/// on one disc rather than by the sides of an old one.
ReleaseFindings bestFirst(ReleaseFindings findings)
{
    QList<ReleaseCandidate> &candidates = findings.fitting;
    const QHash<QString, QString> firstDates = earliestDates(candidates);
    for (ReleaseCandidate &each : candidates)
        each.firstDate = firstDates.value(each.group);
    const auto order = [](const ReleaseCandidate &each) {
        return std::tuple(each.unlikeAlbum + each.unlikeSong, each.unofficial, each.oddKind,
                          each.firstDate, each.group, each.media, each.date);
    };
    std::stable_sort(candidates.begin(), candidates.end(),
                     [&](const auto &one, const auto &other) { return order(one) < order(other); });
    QSet<QString> seen;
    keepNew(candidates, seen);
    keepNew(findings.unfit, seen);
    return findings;
}

} // namespace

QString ReleaseCandidate::knownSince() const
{
    return firstDate == noDate ? QString() : firstDate;
}

int unlikenessOfAlbum(const QString &listed, const ReleaseWish &wish)
{
    if (wish.album.isEmpty() || HVUtility::isStringSimpleEqual(listed, wish.album))
        return 0;
    if (withoutBrackets(listed) == withoutBrackets(wish.album))
        return 1;
    const bool overlaps = wish.substrings == Substrings::Allow
        && simplifiedNamesOverlap(simplifyString(listed), simplifyString(wish.album));
    return overlaps ? 2 : unfit;
}

int unlikenessOfSong(const QString &listed, qint64 length, const ReleaseWish &wish)
{
    const QString title = simplifyString(listed);
    if (!matchesListedTitle(wish.title, title, wish.substrings))
        return unfit;
    return (isOtherVersion(wish.duration, length) ? ofOtherVersion : 0)
        + (title == wish.title ? 0 : 1);
}

bool isOtherVersion(const std::optional<qint64> &duration, qint64 length)
{
    return duration && length > 0 && qAbs(*duration - length) > mostDifference;
}

std::optional<QString> yearOfDate(const QString &date)
{
    const QString year = date.left(yearDigits);
    bool isNumber = false;
    const int number = year.toInt(&isNumber);
    return isNumber && number > 999 ? std::optional(year) : std::nullopt;
}

QString identifierOf(const QJsonValue &value)
{
    const QUuid identifier = QUuid::fromString(value.toString());
    return identifier.isNull() ? QString() : identifier.toString(QUuid::WithoutBraces);
}

QString creditedArtist(const QJsonObject &entity)
{
    QString artist;
    const QJsonArray credits = entity[key("artist-credit")].toArray();
    for (const QJsonValue &credit : credits)
        artist += credit[key("name")].toString() + credit[key("joinphrase")].toString();
    return artist;
}

bool isPlainAlbum(const QJsonObject &release)
{
    return kindOf(release) == ownAlbum && unofficialityOf(release) == 0;
}

ReleaseFindings candidatesOfReleases(const QJsonObject &answer, const ReleaseWish &wish)
{
    ReleaseFindings findings;
    const QJsonArray releases = answer[key("releases")].toArray();
    for (const QJsonValue &value : releases) {
        const QJsonObject release = value.toObject();
        ReleaseCandidate candidate = candidateOf(release, wish);
        candidate.fate = unfitness(candidate, release, wish, wish.isCompilation);
        addCandidate(findings, std::move(candidate));
    }
    return bestFirst(std::move(findings));
}

ReleaseFindings candidatesOfRecordings(const QJsonObject &answer, const ReleaseWish &wish)
{
    ReleaseFindings findings;
    const QJsonArray recordings = answer[key("recordings")].toArray();
    for (const QJsonValue &value : recordings) {
        const QJsonObject recording = value.toObject();
        const int unlikeSong = unlikenessOfSong(recording[key("title")].toString(),
                                                recording[key("length")].toInteger(), wish);
        const QJsonArray releases = recording[key("releases")].toArray();
        for (const QJsonValue &release : releases) {
            ReleaseCandidate candidate = candidateOf(release.toObject(), wish);
            candidate.unlikeSong = unlikeSong;
            candidate.fate = unfitness(candidate, recording, wish, false);
            addCandidate(findings, std::move(candidate));
        }
    }
    return bestFirst(std::move(findings));
}

AlbumFate fateBehind(const ReleaseCandidate &best, const ReleaseCandidate &candidate)
{
    if (candidate.unlikeAlbum > best.unlikeAlbum)
        return AlbumFate::OfOtherName;
    if (candidate.unlikeSong >= ofOtherVersion && best.unlikeSong < ofOtherVersion)
        return AlbumFate::OfOtherLength;
    if (candidate.unlikeSong > best.unlikeSong)
        return AlbumFate::OfOtherTitle;
    if (candidate.unofficial > best.unofficial)
        return AlbumFate::Unofficial;
    if (candidate.oddKind > best.oddKind)
        return AlbumFate::OfOtherKind;
    if (candidate.group == best.group)
        return AlbumFate::OtherEdition;
    return candidate.firstDate > best.firstDate ? AlbumFate::LaterWork : AlbumFate::BehindOthers;
}

AlbumInfo listedAlbum(const ReleaseCandidate &candidate)
{
    AlbumInfo album;
    album.setName(candidate.title);
    album.setArtist(candidate.artist);
    album.setYear(yearOfDate(candidate.date));
    album.setIdentifiers({candidate.id, candidate.group});
    return album;
}
