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

bool scoresEnough(const QJsonObject &found, const ReleaseWish &wish)
{
    return found[key("score")].toDouble(100) >= wish.minScore;
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
            .date = dateOf(release),
            .media = release[key("count")].toInt(),
            .tracks = release[key("track-count")].toInt(),
            .unlikeAlbum = unlikenessOfAlbum(release[key("title")].toString(), wish),
            .unofficial = unofficialityOf(release),
            .oddKind = oddnessOf(release, wish.isCompilation)};
}

void addCandidate(QList<ReleaseCandidate> &candidates, ReleaseCandidate candidate)
{
    if (!candidate.id.isEmpty() && candidate.unlikeAlbum != unfit && candidate.unlikeSong != unfit)
        candidates << std::move(candidate);
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
QList<ReleaseCandidate> bestFirst(QList<ReleaseCandidate> candidates)
{
    const QHash<QString, QString> firstDates = earliestDates(candidates);
    const auto order = [&](const ReleaseCandidate &each) {
        return std::tuple(each.unlikeAlbum + each.unlikeSong, each.unofficial, each.oddKind,
                          firstDates.value(each.group), each.group, each.media, each.date);
    };
    std::stable_sort(candidates.begin(), candidates.end(),
                     [&](const auto &one, const auto &other) { return order(one) < order(other); });
    QSet<QString> seen;
    candidates.removeIf([&](const ReleaseCandidate &each) {
        const bool isRepeated = seen.contains(each.id);
        seen.insert(each.id);
        return isRepeated;
    });
    return candidates;
}

} // namespace

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
    const bool isOtherVersion =
        wish.duration && length > 0 && qAbs(*wish.duration - length) > mostDifference;
    return (isOtherVersion ? 2 : 0) + (title == wish.title ? 0 : 1);
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

QList<ReleaseCandidate> candidatesOfReleases(const QJsonObject &answer, const ReleaseWish &wish)
{
    QList<ReleaseCandidate> candidates;
    const QJsonArray releases = answer[key("releases")].toArray();
    for (const QJsonValue &value : releases) {
        const QJsonObject release = value.toObject();
        if (scoresEnough(release, wish) && (wish.isCompilation || isByArtist(release, wish)))
            addCandidate(candidates, candidateOf(release, wish));
    }
    return bestFirst(std::move(candidates));
}

QList<ReleaseCandidate> candidatesOfRecordings(const QJsonObject &answer, const ReleaseWish &wish)
{
    QList<ReleaseCandidate> candidates;
    const QJsonArray recordings = answer[key("recordings")].toArray();
    for (const QJsonValue &value : recordings) {
        const QJsonObject recording = value.toObject();
        const int unlikeSong = unlikenessOfSong(recording[key("title")].toString(),
                                                recording[key("length")].toInteger(), wish);
        if (unlikeSong == unfit || !scoresEnough(recording, wish) || !isByArtist(recording, wish))
            continue;
        const QJsonArray releases = recording[key("releases")].toArray();
        for (const QJsonValue &release : releases) {
            ReleaseCandidate candidate = candidateOf(release.toObject(), wish);
            candidate.unlikeSong = unlikeSong;
            addCandidate(candidates, std::move(candidate));
        }
    }
    return bestFirst(std::move(candidates));
}
