#include "gathering/albumscore.h"

#include "text/integervalue.h"
#include "text/simplifier.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <tuple>

namespace {

// A mark says how well one thing agrees, from 0 to 100.
constexpr int perfect = 100;
constexpr int half = 50; // also for what the album does not say

constexpr int yearsUntilNothing = 10;
constexpr int tracksOfBonus = 2;

// Differences in milliseconds: pressings differ a little in the silence at their ends, while
// other versions differ by much more.
constexpr qint64 sameLength = 3'000;
constexpr qint64 otherLength = 15'000;

constexpr QLatin1String various("various");

using Mark = std::optional<int>; ///< absent: nothing is known of the song to compare with

struct Weighed {
    int weight;
    Mark mark;
};

/// What is known of all albums together.
struct Field {
    QHash<QString, QSet<QString>> sourcesOfName; ///< by simplified name
    qsizetype sources = 0; ///< that found albums with a name
    int year = 0; ///< that albums should be of; 0: not known
    bool knowsLengths = false; ///< of tracks
};

/// A song in the form in which it is compared.
struct Wanted {
    const ScoredSong &song;
    std::optional<QString> title;
    QStringList artists;
};

int usableYear(const AlbumInfo &album)
{
    const bool isWhole = album.year() && album.year()->size() == 4;
    return isWhole ? std::max(0, integerValue(*album.year())) : 0;
}

Mark titleMark(const AlbumInfo &album, const Wanted &wanted)
{
    if (!wanted.title)
        return {};
    if (album.numberOfTracks() == 0)
        return half;
    if (album.numberOfTrackSimplified(*wanted.title, Substrings::Refuse) > 0)
        return perfect;
    return album.numberOfTrackSimplified(*wanted.title, wanted.song.allowSubstrings) > 0 ? half : 0;
}

Mark artistMark(const AlbumInfo &album, const Wanted &wanted)
{
    if (wanted.artists.isEmpty())
        return {};
    if (!album.artist())
        return half;
    const QString artist = HVUtility::simplifyString(*album.artist());
    const bool fitsCompilation = wanted.song.isCompilation && artist.startsWith(various);
    if (fitsCompilation || wanted.artists.contains(artist))
        return perfect;
    const bool overlaps =
        std::any_of(wanted.artists.cbegin(), wanted.artists.cend(),
                    [&](const QString &form) { return simplifiedNamesOverlap(form, artist); });
    return overlaps ? half : 0;
}

/// The share of the other sources that know an album of this name.
Mark agreementMark(const AlbumInfo &album, const Field &field)
{
    if (field.sources < 2)
        return {};
    const qsizetype agreeing = field.sourcesOfName.value(album.simplifiedName()).size();
    return static_cast<int>(perfect * std::max<qsizetype>(0, agreeing - 1) / (field.sources - 1));
}

Mark trackCountMark(const AlbumInfo &album, const Wanted &wanted)
{
    if (wanted.song.tracksOnAlbum == 0)
        return {};
    if (album.numberOfTracks() == 0)
        return half;
    const int difference = std::abs(album.numberOfTracks() - wanted.song.tracksOnAlbum);
    if (difference == 0)
        return perfect;
    return difference <= tracksOfBonus ? half : 0;
}

/// Of the song's track, in milliseconds; 0 where the album does not tell.
qint64 lengthOnAlbum(const AlbumInfo &album, const Wanted &wanted)
{
    if (album.trackLengths().isEmpty())
        return 0;
    const int number = wanted.title
        ? album.numberOfTrackSimplified(*wanted.title, wanted.song.allowSubstrings)
        : wanted.song.trackNumber;
    return album.trackLengths().value(number - 1);
}

Mark lengthMark(const AlbumInfo &album, const Wanted &wanted, const Field &field)
{
    if (!wanted.song.duration || !field.knowsLengths)
        return {};
    const qint64 length = lengthOnAlbum(album, wanted);
    if (length <= 0)
        return half;
    const qint64 difference =
        std::clamp(std::abs(length - *wanted.song.duration), sameLength, otherLength);
    return static_cast<int>(perfect * (otherLength - difference) / (otherLength - sameLength));
}

Mark yearMark(const AlbumInfo &album, const Field &field)
{
    if (field.year == 0)
        return {};
    const int year = usableYear(album);
    if (year == 0)
        return half;
    const int difference = std::min(std::abs(year - field.year), yearsUntilNothing);
    return perfect - perfect * difference / yearsUntilNothing;
}

int scoreOf(const AlbumInfo &album, const Wanted &wanted, const Field &field)
{
    const std::array marks{
        Weighed{30, titleMark(album, wanted)},         Weighed{20, artistMark(album, wanted)},
        Weighed{20, agreementMark(album, field)},      Weighed{10, trackCountMark(album, wanted)},
        Weighed{10, lengthMark(album, wanted, field)}, Weighed{10, yearMark(album, field)},
    };
    int sum = 0;
    int weights = 0;
    for (const auto &[weight, mark] : marks) {
        sum += weight * mark.value_or(0);
        weights += mark ? weight : 0;
    }
    return weights > 0 ? (sum + weights / 2) / weights : 0;
}

/// The song's own year, else that of the earliest album that may be the song's: later ones are
/// reissues.
int yearToCompareWith(const AlbumList &albums, const Wanted &wanted)
{
    if (wanted.song.year > 0)
        return wanted.song.year;
    constexpr int none = std::numeric_limits<int>::max();
    int earliest = none;
    for (const AlbumInfo &album : albums) {
        const int year = usableYear(album);
        if (year > 0 && titleMark(album, wanted) != 0 && artistMark(album, wanted) != 0)
            earliest = std::min(earliest, year);
    }
    return earliest == none ? 0 : earliest;
}

Field fieldOf(const AlbumList &albums, const Wanted &wanted)
{
    Field field;
    QSet<QString> sources;
    for (const AlbumInfo &album : albums) {
        field.knowsLengths |= !album.trackLengths().isEmpty();
        const QString name = album.simplifiedName();
        if (name.isEmpty())
            continue;
        field.sourcesOfName[name].insert(album.sourceInterfaceName());
        sources.insert(album.sourceInterfaceName());
    }
    field.sources = sources.size();
    field.year = yearToCompareWith(albums, wanted);
    return field;
}

Wanted wantedOf(const ScoredSong &song)
{
    Wanted wanted{song, {}, {}};
    if (song.title)
        wanted.title = HVUtility::simplifyString(*song.title);
    for (const QString &artist : song.artists)
        wanted.artists << HVUtility::simplifyString(artist);
    return wanted;
}

bool comesBefore(const AlbumInfo &one, const AlbumInfo &other, const QStringList &sources)
{
    const auto order = [&](const AlbumInfo &album) {
        const int year = usableYear(album);
        return std::tuple(-album.score().value_or(0), sources.indexOf(album.sourceInterfaceName()),
                          year > 0 ? year : std::numeric_limits<int>::max(),
                          -album.numberOfTracks(), album.name());
    };
    return order(one) < order(other);
}

} // namespace

void rankByScore(AlbumList &albums, const ScoredSong &song, const QStringList &sources)
{
    const Wanted wanted = wantedOf(song);
    const Field field = fieldOf(albums, wanted);
    for (AlbumInfo &album : albums)
        album.setScore(scoreOf(album, wanted, field));
    std::stable_sort(albums.begin(), albums.end(), [&](const auto &one, const auto &other) {
        return comesBefore(one, other, sources);
    });
}
