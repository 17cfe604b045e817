#include "gathering/albumlist.h"

#include "text/integervalue.h"
#include "text/simplifier.h"

#include <QHash>
#include <QtGlobal>

#include <algorithm>
#include <functional>
#include <vector>

namespace {

// What counts as a year when albums of the same name are given their earliest one.
constexpr int yearBeforeAny = 1600;
constexpr int yearAfterAny = 3000;

// What counts as a year when the earliest album is chosen.
constexpr int choiceAfterYear = 1700;
constexpr int choiceBeforeYear = 2040;

struct Named {
    AlbumInfo album;
    QString key; ///< its simplified name
};

/// What albums of one name know between them.
struct Shared {
    int earliestYear = yearAfterAny;
    std::optional<QString> genre;
    std::optional<QString> artURLString;
    ReleaseIdentifiers identifiers{}; ///< of the first album that has some
};

int yearOf(const AlbumInfo &album)
{
    return integerValue(album.year().value_or(QString()));
}

std::vector<Named> named(AlbumList &albums)
{
    std::vector<Named> result;
    result.reserve(static_cast<std::size_t>(albums.size()));
    for (AlbumInfo &album : albums) {
        const QString key = album.simplifiedName();
        result.push_back({std::move(album), key});
    }
    return result;
}

void learn(Shared &shared, const AlbumInfo &album)
{
    const int year = yearOf(album);
    if (year > yearBeforeAny)
        shared.earliestYear = std::min(shared.earliestYear, year);
    if (album.genre())
        shared.genre = album.genre(); // the last album's counts
    if (album.artURLString())
        shared.artURLString = album.artURLString();
    if (shared.identifiers.isEmpty())
        shared.identifiers = album.identifiers();
}

void teach(AlbumInfo &album, const Shared &shared)
{
    if (shared.earliestYear < yearAfterAny)
        album.setYear(QString::number(shared.earliestYear));
    if (!album.genre())
        album.setGenres(shared.genre);
    if (!album.artURLString())
        album.setArtURLString(shared.artURLString);
    if (album.identifiers().isEmpty())
        album.setIdentifiers(shared.identifiers);
}

void shareAmongSameNamed(std::vector<Named> &albums)
{
    QHash<QString, Shared> byName;
    for (const Named &entry : albums)
        learn(byName[entry.key], entry.album);
    for (Named &entry : albums)
        teach(entry.album, byName[entry.key]);
}

const AlbumInfo &albumIn(const AlbumInfo &album)
{
    return album;
}

const AlbumInfo &albumIn(const Named &entry)
{
    return entry.album;
}

/// A filter: who is told of what it drops, and what that means for an album.
struct Filter {
    const DropListener &dropped;
    AlbumFate fate;

    void tell(const AlbumInfo &album) const
    {
        if (dropped)
            dropped(album, fate);
    }
};

/// Keeps what fits, in its order, unless nothing does. Whether anything did.
template<typename Albums, typename Fits>
bool keepIfAny(Albums &albums, Fits fits, const Filter &filter)
{
    const auto firstUnfit = std::stable_partition(albums.begin(), albums.end(), fits);
    if (firstUnfit == albums.begin())
        return false;
    std::for_each(firstUnfit, albums.end(),
                  [&](const auto &unfit) { filter.tell(albumIn(unfit)); });
    albums.erase(firstUnfit, albums.end());
    return true;
}

void keepAlbumsWithTrack(std::vector<Named> &albums, const QString &title,
                         const DropListener &dropped)
{
    const QString simplified = HVUtility::simplifyString(title);
    const auto holdsTitle = [&](const Named &entry) {
        return entry.album.numberOfTrackSimplified(simplified, Substrings::Allow) > 0;
    };
    keepIfAny(albums, holdsTitle, {dropped, AlbumFate::TitleNotOnAlbum});
}

/// Albums without a name may be any album, and stay.
void keepOverlappingNames(std::vector<Named> &albums, const QString &wanted, const Filter &filter)
{
    const auto overlaps = [&](const Named &entry) {
        return simplifiedNamesOverlap(entry.key, wanted);
    };
    if (std::none_of(albums.cbegin(), albums.cend(), overlaps))
        return;
    keepIfAny(
        albums, [&](const Named &entry) { return entry.key.isEmpty() || overlaps(entry); }, filter);
}

AlbumList withoutKeys(std::vector<Named> &entries)
{
    AlbumList albums;
    for (Named &entry : entries)
        albums << std::move(entry.album);
    return albums;
}

AlbumList mergedByName(std::vector<Named> &albums, const Filter &filter)
{
    AlbumList merged;
    QHash<QString, qsizetype> positions;
    for (Named &entry : albums) {
        const auto known = positions.constFind(entry.key);
        if (known != positions.cend()) {
            merged[*known].incDuplicates();
            filter.tell(entry.album);
            continue;
        }
        positions.insert(entry.key, merged.size());
        merged << std::move(entry.album);
    }
    return merged;
}

AlbumInfo albumOfMostTracks(const AlbumList &albums)
{
    return *std::max_element(albums.cbegin(), albums.cend(),
                             [](const AlbumInfo &one, const AlbumInfo &other) {
                                 return one.numberOfTracks() < other.numberOfTracks();
                             });
}

int earliestYear(const AlbumList &albums)
{
    // A candidate of exactly 2040 is chosen when no other year is usable: kept, since the search
    // starts from that year and it harms nobody.
    int earliest = choiceBeforeYear;
    for (const AlbumInfo &album : albums) {
        const int year = yearOf(album);
        if (album.year() && album.year()->size() == 4 && year > choiceAfterYear)
            earliest = std::min(earliest, year);
    }
    return earliest;
}

QString noYearProblem(const AlbumList &albums, const SongWords &song)
{
    QStringList names;
    for (const AlbumInfo &album : albums)
        names << u'\'' + album.name().value_or(QString()) + u'\'';
    return qtTrId("ErrorNoYear")
        .arg(QString::number(albums.size()), song.artist, song.title,
             names.join(QStringLiteral(", ")));
}

AlbumChoice albumOfEarliestYear(const AlbumList &albums, const SongWords &song)
{
    const int earliest = earliestYear(albums);
    AlbumList ofThatYear = albums;
    ofThatYear.removeIf([&](const AlbumInfo &album) { return yearOf(album) != earliest; });
    if (ofThatYear.isEmpty())
        return {{}, noYearProblem(albums, song)};
    return {albumOfMostTracks(ofThatYear), {}};
}

AlbumInfo albumOfMostDuplicates(const AlbumList &albums)
{
    return *std::max_element(albums.cbegin(), albums.cend(),
                             [](const AlbumInfo &one, const AlbumInfo &other) {
                                 return one.duplicates() < other.duplicates();
                             });
}

template<typename Is>
AlbumList takenOut(AlbumList &albums, Is isOne)
{
    const auto first = std::stable_partition(albums.begin(), albums.end(), std::not_fn(isOne));
    const AlbumList taken(first, albums.end());
    albums.erase(first, albums.end());
    return taken;
}

AlbumList inOrderOfSources(AlbumList albums, const QStringList &sources)
{
    std::stable_sort(albums.begin(), albums.end(), [&](const auto &one, const auto &other) {
        return sources.indexOf(one.sourceInterfaceName())
            < sources.indexOf(other.sourceInterfaceName());
    });
    return albums;
}

} // namespace

void simplifyAlbumArray(AlbumList &albums, const std::optional<QString> &forTrackName,
                        const DropListener &dropped)
{
    std::vector<Named> entries = named(albums);
    shareAmongSameNamed(entries);
    if (forTrackName)
        keepAlbumsWithTrack(entries, *forTrackName, dropped);
    albums = mergedByName(entries, {dropped, AlbumFate::Merged});
}

void eliminateAlbumsWithDifferentNumberOfTracks(AlbumList &albums, int than,
                                                const DropListener &dropped)
{
    const auto fits = [than](const AlbumInfo &album) { return album.numberOfTracks() == than; };
    keepIfAny(albums, fits, {dropped, AlbumFate::OtherNumberOfTracks});
}

void eliminateAlbumsWithoutDesiredName(AlbumList &albums, const std::optional<QString> &tagAlbum,
                                       Substrings allowSubstrings, const DropListener &dropped)
{
    if (!tagAlbum)
        return;
    const Filter filter{dropped, AlbumFate::OtherName};
    const QString wanted = HVUtility::simplifyString(*tagAlbum);
    std::vector<Named> entries = named(albums);
    const bool anyEqual = keepIfAny(
        entries, [&](const Named &entry) { return entry.key == wanted; }, filter);
    if (!anyEqual && allowSubstrings == Substrings::Allow)
        keepOverlappingNames(entries, wanted, filter);
    albums = withoutKeys(entries);
}

void filterAlbums(AlbumList &albums, const SongFacts &song, Substrings allowSubstrings,
                  const DropListener &dropped)
{
    if (song.trustsTitle) {
        simplifyAlbumArray(albums, song.title, dropped);
        eliminateAlbumsWithoutDesiredName(albums, song.album, allowSubstrings, dropped);
        return;
    }
    if (song.tracksOnAlbum != 0)
        eliminateAlbumsWithDifferentNumberOfTracks(albums, song.tracksOnAlbum, dropped);
    simplifyAlbumArray(albums, {}, dropped);
}

AlbumChoice chooseAlbum(const AlbumList &candidates, AlbumPick method, const SongWords &song)
{
    if (candidates.isEmpty())
        return {};
    if (candidates.size() == 1)
        return {candidates.first(), {}};
    switch (method) {
    case AlbumPick::None:
        return {};
    case AlbumPick::EarliestYear:
        return albumOfEarliestYear(candidates, song);
    case AlbumPick::MostAgreement:
        return {albumOfMostDuplicates(candidates), {}};
    case AlbumPick::Best:
        return {candidates.first(), {}};
    }
    return {};
}

AlbumList artworkCandidates(const AlbumList &albums, const QStringList &sources)
{
    AlbumList candidates;
    for (auto album = albums.crbegin(); album != albums.crend(); ++album) {
        if (album->artURLString() && sources.contains(album->sourceInterfaceName()))
            candidates << album->copy();
    }
    return inOrderOfSources(candidates, sources);
}

AlbumList takeCovers(AlbumList &albums)
{
    return takenOut(albums, &AlbumInfo::isCoverAlone);
}

bool carriesOnlyLyrics(const AlbumInfo &album)
{
    const bool tellsOfLyrics = album.isInstrumental() || !album.lyrics().isEmpty();
    return tellsOfLyrics && album.numberOfTracks() == 0 && !album.artURLString() && !album.year()
        && !album.genre();
}

AlbumList takeLyricsAlbums(AlbumList &albums, const QStringList &sources)
{
    return inOrderOfSources(takenOut(albums, carriesOnlyLyrics), sources);
}
