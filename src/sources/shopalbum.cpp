#include "sources/shopalbum.h"

#include "gathering/fittinggenre.h"
#include "text/simplifier.h"

#include <algorithm>
#include <array>
#include <map>

using HVUtility::simplifyString;

namespace {

constexpr qint64 millisecondsOfSecond = 1'000;

struct CoverSize {
    QLatin1String key;
    int width; ///< pixels
};

constexpr std::array coverSizes{
    CoverSize{QLatin1String("cover_small"), 56},
    CoverSize{QLatin1String("cover_medium"), 250},
    CoverSize{QLatin1String("cover_big"), 500},
    CoverSize{QLatin1String("cover_xl"), 1000},
};

QLatin1String key(const char *name)
{
    return QLatin1String(name);
}

QString artistOf(const QJsonValue &entry)
{
    return entry[key("artist")][key("name")].toString();
}

bool isByArtist(const QJsonValue &entry, const ReleaseWish &wish)
{
    return matchesListedArtist(wish.artist, simplifyString(artistOf(entry)), wish.substrings);
}

qint64 lengthOf(const QJsonValue &track)
{
    return std::max<qint64>(0, track[key("duration")].toInteger()) * millisecondsOfSecond;
}

/// Albums by how far they are from what was wished; unfit ones are left out.
class Ranking {
public:
    void add(const QJsonValue &album, int unlikeAlbum, int unlikeSong)
    {
        const qint64 number = album[key("id")].toInteger();
        if (number > 0 && unlikeAlbum != unfit && unlikeSong != unfit)
            mRanked.emplace(unlikeAlbum + unlikeSong, number);
    }

    [[nodiscard]] QList<qint64> numbers() const
    {
        QList<qint64> numbers;
        for (const auto &[unlikeness, number] : mRanked)
            if (!numbers.contains(number))
                numbers << number;
        return numbers;
    }

private:
    std::multimap<int, qint64> mRanked; ///< equal ones in the order of the list
};

QStringList genresOf(const QJsonObject &album)
{
    QStringList names;
    const QJsonArray genres = shopList(album[key("genres")].toObject());
    for (const QJsonValue &genre : genres)
        if (const QString name = genre[key("name")].toString(); !name.isEmpty())
            names << name;
    return names;
}

/// The tracks by their places, which begin with 1.
using Disc = std::map<int, QJsonValue>;

ReleaseRecord::Medium mediumOf(const Disc &disc)
{
    ReleaseRecord::Medium medium;
    for (const auto &[place, track] : disc) {
        medium.titles << track[key("title")].toString();
        medium.lengths << lengthOf(track);
        medium.artists << artistOf(track);
    }
    return medium;
}

bool isWhole(const Disc &disc)
{
    return disc.begin()->first == 1 && disc.rbegin()->first == static_cast<int>(disc.size());
}

} // namespace

QJsonArray shopList(const QJsonObject &answer)
{
    return answer[key("data")].toArray();
}

QList<qint64> shopAlbums(const QJsonArray &albums, const ReleaseWish &wish)
{
    Ranking ranking;
    for (const QJsonValue &album : albums)
        if (isShopAlbumOf(wish, album.toObject()))
            ranking.add(album, unlikenessOfAlbum(album[key("title")].toString(), wish), 0);
    return ranking.numbers();
}

QList<qint64> albumsOfShopTracks(const QJsonArray &tracks, const ReleaseWish &wish)
{
    Ranking ranking;
    for (const QJsonValue &track : tracks) {
        const QJsonValue album = track[key("album")];
        if (isByArtist(track, wish))
            ranking.add(album, unlikenessOfAlbum(album[key("title")].toString(), wish),
                        unlikenessOfSong(track[key("title")].toString(), lengthOf(track), wish));
    }
    return ranking.numbers();
}

bool isShopAlbumOf(const ReleaseWish &wish, const QJsonObject &album)
{
    return wish.isCompilation || isByArtist(album, wish);
}

ReleaseRecord shopRecord(const QJsonObject &album, const QJsonArray &tracks)
{
    ReleaseRecord record;
    record.title = album[key("title")].toString();
    record.artist = artistOf(album);
    record.date = album[key("release_date")].toString();
    record.year = yearOfDate(record.date);
    const QStringList genres = genresOf(album);
    record.genre = fittingGenre(genres);
    if (!record.genre && !genres.isEmpty())
        record.genre = genres.first();
    record.isPlainAlbum = album[key("record_type")].toString() == key("album");
    std::map<int, Disc> discs;
    for (const QJsonValue &track : tracks) {
        Disc &disc = discs[track[key("disk_number")].toInt(1)];
        const int next = static_cast<int>(disc.size()) + 1;
        disc.emplace(track[key("track_position")].toInt(next), track);
    }
    for (const auto &[number, disc] : discs)
        if (isWhole(disc))
            record.media << mediumOf(disc);
    return record;
}

PictureSizes shopCover(const QJsonObject &album)
{
    PictureSizes sizes;
    for (const auto &[name, width] : coverSizes)
        if (const QString address = album[name].toString(); !address.isEmpty())
            sizes.insert(width, address);
    return sizes;
}
