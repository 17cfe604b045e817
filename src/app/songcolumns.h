#pragma once

#include "songs/songorder.h"
#include "tags/tagtext.h"

#include <QStringView>

#include <array>

/// A column of the songs table. The numbers are places in the table as it first stands.
enum class SongColumn {
    Activity,
    Index,
    Title,
    Artist,
    Album,
    Track,
    Year,
    Genre,
    Lyrics,
    Artwork,
    BPM,
    Compilation,
    Version
};
inline constexpr int songColumnCount = 13;

struct SongColumnInfo {
    enum class Kind { Icon, Text, Number, Mark };
    enum class Shown { Always, AtFirst, OnDemand, InPlaylists };

    SongColumn column;
    const char *identifier; ///< in the settings
    const char *title; ///< id of its text
    SongOrder::Comparison order;
    Kind kind;
    Shown shown;
    std::optional<TagText> editedText; ///< which text typing into the column sets
};

[[nodiscard]] const std::array<SongColumnInfo, songColumnCount> &songColumns();
[[nodiscard]] const SongColumnInfo &infoOf(SongColumn column);

[[nodiscard]] std::optional<SongColumn> columnWithIdentifier(QStringView identifier);
[[nodiscard]] std::optional<SongColumn> columnWithOrder(SongOrder::Comparison order);

/// What stands in the song's row, in one line; empty where an icon or a mark stands, or nothing.
[[nodiscard]] QString textInColumn(SongColumn column, SongFile &song);
/// Whether the mark of such a column is set.
[[nodiscard]] bool isMarkedInColumn(SongColumn column, SongFile &song);
