#include "gathering/acoustidanswer.h"

#include "text/simplifier.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <tuple>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int invalidKey = 4;
/// Longer names are none.
constexpr qsizetype longestName = 500;
/// Seconds that a recording of unknown length counts as different by: as many as the service
/// lets differ at most.
constexpr int unknownDifference = 30;

/// Nothing for what is no name.
std::optional<QString> nameIn(const QJsonValue &value)
{
    const QString name = value.toString().simplified();
    return name.isEmpty() || name.size() > longestName ? std::nullopt : std::optional(name);
}

/// The names with what joins them.
std::optional<QString> artistIn(const QJsonArray &artists)
{
    QString text;
    QString join;
    for (const QJsonValue &artist : artists) {
        const auto name = nameIn(artist["name"_L1]);
        if (!name)
            continue;
        text += join + *name;
        join = artist["joinphrase"_L1].toString(u", "_s);
    }
    return nameIn(text);
}

/// The smaller, the better.
int rankOfAlbum(const QJsonValue &group, const std::optional<QString> &known)
{
    if (HVUtility::isStringSimpleEqual(nameIn(group["title"_L1]), known))
        return 0;
    if (group["type"_L1] != "Album"_L1)
        return 3;
    // Such as of compilations and live albums.
    return group["secondarytypes"_L1].toArray().isEmpty() ? 1 : 2;
}

std::optional<QString> albumIn(const QJsonArray &groups, const std::optional<QString> &known)
{
    std::optional<QString> album;
    int best = 0;
    for (const QJsonValue &group : groups) {
        const auto name = nameIn(group["title"_L1]);
        const int rank = rankOfAlbum(group, known);
        if (name && (!album || rank < best)) {
            album = name;
            best = rank;
        }
    }
    return album;
}

bool mayBe(const std::optional<QString> &known, const QString &found)
{
    return !known || HVUtility::isStringSimpleEqual(known, found);
}

/// Nothing where it is an identifier alone, or another song.
std::optional<SongIdentity> identityIn(const QJsonValue &recording, const KnownOfSong &known)
{
    const auto title = nameIn(recording["title"_L1]);
    const auto artist = artistIn(recording["artists"_L1].toArray());
    if (!title || !artist || !mayBe(known.title, *title) || !mayBe(known.artist, *artist))
        return {};
    return SongIdentity{*artist, *title,
                        albumIn(recording["releasegroups"_L1].toArray(), known.album)};
}

/// The recording whose album is known and whose length is the song's, as far as there is one.
std::optional<SongIdentity> bestIn(const QJsonArray &recordings, const KnownOfSong &known)
{
    std::optional<SongIdentity> found;
    std::tuple<bool, double> best;
    for (const QJsonValue &recording : recordings) {
        const auto identity = identityIn(recording, known);
        if (!identity)
            continue;
        const double seconds = recording["duration"_L1].toDouble();
        const double difference =
            seconds > 0 ? std::abs(seconds - known.seconds) : double(unknownDifference);
        const std::tuple rank(!identity->album, difference);
        if (!found || rank < best) {
            found = identity;
            best = rank;
        }
    }
    return found;
}

double scoreOf(const QJsonObject &result)
{
    return result["score"_L1].toDouble();
}

std::vector<QJsonObject> resultsByScore(const QJsonArray &array, double minScore)
{
    std::vector<QJsonObject> results;
    for (const QJsonValue &result : array)
        if (scoreOf(result.toObject()) >= minScore)
            results.push_back(result.toObject());
    std::stable_sort(results.begin(), results.end(), [](const auto &one, const auto &other) {
        return scoreOf(one) > scoreOf(other);
    });
    return results;
}

} // namespace

AcoustIDAnswer readAcoustIDAnswer(const QByteArray &json, double minScore, const KnownOfSong &known)
{
    const QJsonObject answer = QJsonDocument::fromJson(json).object();
    if (answer["status"_L1] == "error"_L1) {
        const QJsonValue error = answer["error"_L1];
        return {.problem = nameIn(error["message"_L1]).value_or(u"?"_s),
                .isKeyRefused = error["code"_L1] == invalidKey};
    }
    if (answer["status"_L1] != "ok"_L1 || !answer["results"_L1].isArray())
        return {.problem = qtTrId("ErrorStrangeAnswer"), .isStrange = true};
    for (const QJsonObject &result : resultsByScore(answer["results"_L1].toArray(), minScore))
        if (const auto song = bestIn(result["recordings"_L1].toArray(), known))
            return {.song = song};
    return {};
}
