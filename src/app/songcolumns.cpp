#include "app/songcolumns.h"

#include "app/tagvalues.h"
#include "songs/cachedinfotag.h"

#include <algorithm>

namespace {

using enum SongColumnInfo::Kind;
using enum SongColumnInfo::Shown;

constexpr std::array<SongColumnInfo, songColumnCount> columns{{
    {SongColumn::Activity, "active", "ColumnActivity", SongOrder::compareActivity, Icon, Always,
     std::nullopt},
    {SongColumn::Index, "index", "ColumnIndex", SongOrder::compareIndex, Number, InPlaylists,
     std::nullopt},
    {SongColumn::Title, "title", "ColumnTitle", SongOrder::compareTitle, Text, Always,
     TagText::Title},
    {SongColumn::Artist, "artist", "ColumnArtist", SongOrder::compareArtist, Text, AtFirst,
     TagText::Artist},
    {SongColumn::Album, "album", "ColumnAlbum", SongOrder::compareAlbum, Text, AtFirst,
     TagText::Album},
    {SongColumn::Track, "track", "ColumnTrack", SongOrder::compareTrack, Number, AtFirst,
     TagText::Track},
    {SongColumn::Year, "year", "ColumnYear", SongOrder::compareYear, Number, AtFirst,
     TagText::Year},
    {SongColumn::Genre, "genre", "ColumnGenre", SongOrder::compareGenre, Text, AtFirst,
     TagText::Genres},
    {SongColumn::Lyrics, "lyrics", "ColumnLyrics", SongOrder::compareLyrics, Mark, AtFirst,
     std::nullopt},
    {SongColumn::Artwork, "art", "ColumnArtwork", SongOrder::compareArt, Number, AtFirst,
     std::nullopt},
    {SongColumn::BPM, "bpm", "ColumnBPM", SongOrder::compareBPM, Number, OnDemand, TagText::BPM},
    {SongColumn::Compilation, "compilation", "ColumnCompilation", SongOrder::compareCompilation,
     Mark, OnDemand, std::nullopt},
    {SongColumn::Version, "version", "ColumnVersion", SongOrder::compareReadVersion, Text, OnDemand,
     std::nullopt},
}};

template<typename Member, typename Value>
std::optional<SongColumn> columnWith(Member member, const Value &value)
{
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const auto &info) {
        return std::invoke(member, info) == value;
    });
    return found == columns.end() ? std::nullopt : std::optional(found->column);
}

QString numberOrNothing(int number, int nothing)
{
    return number == nothing ? QString() : QString::number(number);
}

QString inOneLine(QString text)
{
    for (QChar &character : text)
        if (character == u'\n' || character == u'\r' || character == QChar::LineSeparator
            || character == QChar::ParagraphSeparator)
            character = u' ';
    return text;
}

} // namespace

const std::array<SongColumnInfo, songColumnCount> &songColumns()
{
    return columns;
}

const SongColumnInfo &infoOf(SongColumn column)
{
    return columns.at(static_cast<std::size_t>(column));
}

std::optional<SongColumn> columnWithIdentifier(QStringView identifier)
{
    return columnWith([](const auto &info) { return QLatin1String(info.identifier); }, identifier);
}

std::optional<SongColumn> columnWithOrder(SongOrder::Comparison order)
{
    return columnWith(&SongColumnInfo::order, order);
}

QString textInColumn(SongColumn column, SongFile &song)
{
    const AudioInfoTag *tag = song.infotag();
    if (!tag)
        return column == SongColumn::Title ? song.filename() : QString();
    if (const auto text = infoOf(column).editedText)
        return inOneLine(textOf(*tag, *text).value_or(QString()));
    switch (column) {
    case SongColumn::Index:
        return numberOrNothing(tag->playlistIndex(), AudioInfoTag::notFound);
    case SongColumn::Artwork:
        return numberOrNothing(tag->numberOfImages(), 0);
    case SongColumn::Version:
        return tag->readVersion().value_or(QString());
    default:
        return {};
    }
}

bool isMarkedInColumn(SongColumn column, SongFile &song)
{
    const AudioInfoTag *tag = song.infotag();
    if (!tag)
        return false;
    return (column == SongColumn::Lyrics && hasLyrics(*tag))
        || (column == SongColumn::Compilation && tag->isPartOfCompilation());
}
