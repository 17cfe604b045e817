#include "app/songkeys.h"

#include "songs/cachedinfotag.h"
#include "text/integervalue.h"

#include <utility>

namespace {

using Text = std::optional<QString>;
using TextGetter = Text (AudioInfoTag::*)() const;

constexpr std::array<TextGetter, textKeyCount> textGetters{
    &AudioInfoTag::title,  &AudioInfoTag::artist, &AudioInfoTag::album,
    &AudioInfoTag::genres, &AudioInfoTag::year,   &AudioInfoTag::readVersion};

/// Of songs without a tag every field is missing.
Text textOf(SongFile &song, TextGetter getter)
{
    const AudioInfoTag *tag = song.infotag();
    return tag ? (tag->*getter)() : std::nullopt;
}

qint64 numberOf(SongKey key, const AudioInfoTag &tag)
{
    switch (key) {
    case SongKey::TrackNumber:
        return tag.track() ? tag.trackNumber() : SongKeyColumn::noNumber;
    case SongKey::LatestYear: {
        const Text year = tag.year();
        return year ? -qint64{integerValue(*year)} : SongKeyColumn::noNumber;
    }
    case SongKey::Lyrics:
        return hasLyrics(tag) ? -1 : 0;
    case SongKey::Artworks:
        return -tag.numberOfImages();
    case SongKey::Index:
        return tag.playlistIndex();
    case SongKey::BPM:
        return integerValue(tag.bpm().value_or(QString()));
    case SongKey::Compilation:
        return tag.isPartOfCompilation() ? -1 : 0;
    default:
        Q_UNREACHABLE();
    }
}

qint64 numberWithoutTag(SongKey key)
{
    switch (key) {
    case SongKey::TrackNumber:
    case SongKey::LatestYear:
        return SongKeyColumn::noNumber;
    case SongKey::Index:
        return AudioInfoTag::notFound;
    default:
        return 0;
    }
}

qint64 numberOf(SongKey key, SongFile &song)
{
    if (key == SongKey::Activity)
        return -static_cast<qint64>(song.activityStatus());
    const AudioInfoTag *tag = song.infotag();
    return tag ? numberOf(key, *tag) : numberWithoutTag(key);
}

std::size_t indexOf(SongKey key)
{
    return static_cast<std::size_t>(key);
}

quint32 numberOfText(TextPool &pool, const Text &text)
{
    return text ? pool.numberOf(*text) : SongKeyColumn::noText;
}

} // namespace

void SongKeys::clear()
{
    mColumns = {};
}

SongKeys::Column &SongKeys::columnOf(SongKey key)
{
    return mColumns.at(indexOf(key));
}

/// All keys of some songs at a time: these songs are in the processor's cache then.
bool SongKeys::makeKeys(const SongList &songs, const SongKeyList &keys, QDeadlineTimer deadline)
{
    constexpr qsizetype atATime = 256; // songs
    const auto size = static_cast<qsizetype>(songs.size());
    qsizetype end = size;
    for (const SongKey key : keys)
        end = std::min(end, columnOf(key).count);
    while (end < size) {
        end = std::min(size, end + atATime);
        for (const SongKey key : keys)
            addUpTo(end, songs, key);
        if (deadline.hasExpired())
            return end == size;
    }
    return true;
}

void SongKeys::addUpTo(qsizetype end, const SongList &songs, SongKey key)
{
    Column &column = columnOf(key);
    for (; column.count < end; ++column.count)
        add(column, key, *songs[static_cast<std::size_t>(column.count)]);
}

void SongKeys::add(Column &column, SongKey key, SongFile &song)
{
    const std::size_t index = indexOf(key);
    if (index < textKeyCount)
        column.keys.textNumbers.append(
            numberOfText(column.pool, textOf(song, textGetters.at(index))));
    else
        column.keys.numbers.append(numberOf(key, song));
}

void SongKeys::songChanged(qsizetype position, SongFile &song)
{
    for (std::size_t index = 0; index < songKeyCount; ++index) {
        Column &column = mColumns.at(index);
        if (position >= column.count)
            continue;
        if (index < textKeyCount)
            changeText(column, position, textOf(song, textGetters.at(index)));
        else
            column.keys.numbers[position] = numberOf(static_cast<SongKey>(index), song);
    }
}

/// Old texts stay; of a column with more of them than songs, the keys are made again.
void SongKeys::changeText(Column &column, qsizetype position, const std::optional<QString> &text)
{
    constexpr qsizetype mostOldTexts = 1'000; // of a short list
    column.keys.textNumbers[position] = numberOfText(column.pool, text);
    if (column.pool.texts().size() > 2 * column.count + mostOldTexts)
        column = {};
}

void SongKeys::forget(SongKey key)
{
    columnOf(key) = {};
}

SongKeyColumn SongKeys::column(SongKey key) const
{
    const Column &column = mColumns.at(indexOf(key));
    SongKeyColumn keys = column.keys;
    keys.texts = column.pool.texts();
    return keys;
}

void SongKeys::setRanks(SongKey key, const QList<quint32> &ranks)
{
    columnOf(key).keys.ranks = ranks;
}
