#include "songs/songorder.h"

#include "songs/cachedinfotag.h"
#include "text/integervalue.h"
#include "text/numericorder.h"

#include <initializer_list>

namespace SongOrder {

namespace {
using Text = std::optional<QString>;
using TextGetter = Text (AudioInfoTag::*)() const;

/// Tags are asked through these: a file that is no song counts as one without any field.
template<typename Value>
Value fieldOf(SongFile &song, Value (AudioInfoTag::*getter)() const, Value otherwise)
{
    const AudioInfoTag *tag = song.infotag();
    return tag ? (tag->*getter)() : otherwise;
}

Text textOf(SongFile &song, TextGetter getter)
{
    return fieldOf<Text>(song, getter, std::nullopt);
}

/// The sign (1 when the first is missing), or nothing when both are there to be compared.
std::optional<int> compareMissing(const Text &text, const Text &other)
{
    if (text && other)
        return std::nullopt;
    return compare(text ? 1 : 0, other ? 1 : 0);
}

int sign(int number)
{
    return compare(0, number);
}

int compareTexts(SongFile &song, SongFile &other, TextGetter getter)
{
    const Text text = textOf(song, getter);
    const Text otherText = textOf(other, getter);
    if (const auto missing = compareMissing(text, otherText))
        return *missing;
    return sign(compareCaseInsensitiveNumeric(*text, *otherText));
}

int chain(SongFile &song, SongFile &other, std::initializer_list<Comparison> comparisons)
{
    for (const Comparison comparison : comparisons) {
        if (const int result = comparison(song, other))
            return result;
    }
    return 0;
}
} // namespace

int compare(int a, int to)
{
    return a < to ? 1 : a > to ? -1 : 0;
}

int rawCompareArtist(SongFile &song, SongFile &other)
{
    return compareTexts(song, other, &AudioInfoTag::artist);
}

int rawCompareTitle(SongFile &song, SongFile &other)
{
    return compareTexts(song, other, &AudioInfoTag::title);
}

int rawCompareAlbum(SongFile &song, SongFile &other)
{
    return compareTexts(song, other, &AudioInfoTag::album);
}

int rawCompareGenre(SongFile &song, SongFile &other)
{
    return compareTexts(song, other, &AudioInfoTag::genres);
}

int rawCompareReadVersion(SongFile &song, SongFile &other)
{
    const Text version = textOf(song, &AudioInfoTag::readVersion);
    const Text otherVersion = textOf(other, &AudioInfoTag::readVersion);
    if (const auto missing = compareMissing(version, otherVersion))
        return *missing;
    return sign(version->compare(*otherVersion, Qt::CaseInsensitive));
}

int rawCompareTrack(SongFile &song, SongFile &other)
{
    const auto missing =
        compareMissing(textOf(song, &AudioInfoTag::track), textOf(other, &AudioInfoTag::track));
    return missing ? *missing
                   : compare(other.infotag()->trackNumber(), song.infotag()->trackNumber());
}

int rawCompareYear(SongFile &song, SongFile &other)
{
    const Text year = textOf(song, &AudioInfoTag::year);
    const Text otherYear = textOf(other, &AudioInfoTag::year);
    const auto missing = compareMissing(year, otherYear);
    return missing ? *missing : compare(integerValue(*year), integerValue(*otherYear));
}

int rawCompareLyrics(SongFile &song, SongFile &other)
{
    const auto haveLyrics = [](SongFile &file) {
        const AudioInfoTag *tag = file.infotag();
        return tag && hasLyrics(*tag) ? 1 : 0;
    };
    return compare(haveLyrics(song), haveLyrics(other));
}

int rawCompareArt(SongFile &song, SongFile &other)
{
    return compare(fieldOf(song, &AudioInfoTag::numberOfImages, 0),
                   fieldOf(other, &AudioInfoTag::numberOfImages, 0));
}

int rawCompareActivity(SongFile &song, SongFile &other)
{
    return compare(static_cast<int>(song.activityStatus()),
                   static_cast<int>(other.activityStatus()));
}

int rawCompareIndex(SongFile &song, SongFile &other)
{
    return compare(fieldOf(other, &AudioInfoTag::playlistIndex, AudioInfoTag::notFound),
                   fieldOf(song, &AudioInfoTag::playlistIndex, AudioInfoTag::notFound));
}

int rawCompareBPM(SongFile &song, SongFile &other)
{
    const auto bpmOf = [](SongFile &file) {
        return integerValue(textOf(file, &AudioInfoTag::bpm).value_or(QString()));
    };
    return compare(bpmOf(other), bpmOf(song));
}

int rawCompareIsCompilation(SongFile &song, SongFile &other)
{
    return compare(fieldOf(song, &AudioInfoTag::isPartOfCompilation, false) ? 1 : 0,
                   fieldOf(other, &AudioInfoTag::isPartOfCompilation, false) ? 1 : 0);
}

int compareIndex(SongFile &song, SongFile &other)
{
    return chain(song, other, {rawCompareIndex, compareTitle});
}

int compareCompilation(SongFile &song, SongFile &other)
{
    return chain(song, other, {rawCompareIsCompilation, compareAlbum});
}

int compareArtist(SongFile &song, SongFile &other)
{
    return chain(song, other, {rawCompareArtist, rawCompareAlbum, rawCompareTrack});
}

int compareTitle(SongFile &song, SongFile &other)
{
    return chain(song, other, {rawCompareTitle, rawCompareArtist, rawCompareAlbum});
}

int compareAlbum(SongFile &song, SongFile &other)
{
    return chain(song, other,
                 {rawCompareAlbum, rawCompareTrack, rawCompareTitle, rawCompareArtist});
}

int compareTrack(SongFile &song, SongFile &other)
{
    return chain(song, other,
                 {rawCompareTrack, rawCompareAlbum, rawCompareTitle, rawCompareArtist});
}

int compareYear(SongFile &song, SongFile &other)
{
    return chain(song, other, {rawCompareYear, rawCompareAlbum, rawCompareArtist, rawCompareTrack});
}

int compareGenre(SongFile &song, SongFile &other)
{
    return chain(song, other, {rawCompareGenre, rawCompareAlbum, rawCompareArtist});
}

int compareLyrics(SongFile &song, SongFile &other)
{
    return chain(song, other, {rawCompareLyrics, compareAlbum});
}

int compareArt(SongFile &song, SongFile &other)
{
    return chain(song, other, {rawCompareArt, rawCompareArtist, rawCompareAlbum, rawCompareTrack});
}

int compareReadVersion(SongFile &song, SongFile &other)
{
    return chain(song, other, {rawCompareReadVersion, rawCompareAlbum, rawCompareArtist});
}

int compareBPM(SongFile &song, SongFile &other)
{
    return chain(song, other, {rawCompareBPM, rawCompareTitle, rawCompareArtist, rawCompareAlbum});
}

int compareActivity(SongFile &song, SongFile &other)
{
    return rawCompareActivity(song, other);
}

} // namespace SongOrder
