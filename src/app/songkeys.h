#pragma once

#include "app/textranks.h"
#include "songs/songfile.h"

#include <QDeadlineTimer>

#include <array>

/// What songs are sorted and searched by.
enum class SongKey {
    // Texts.
    Title,
    Artist,
    Album,
    Genres,
    Year,
    Version,
    // Numbers, small ones first.
    TrackNumber,
    LatestYear,
    Lyrics,
    Artworks,
    Activity,
    Index,
    BPM,
    Compilation
};
inline constexpr std::size_t textKeyCount = 6;
inline constexpr std::size_t songKeyCount = 14;
using SongKeyList = QList<SongKey>;

/// The keys of all songs by one field. Copies are cheap, and may be read on another thread.
struct SongKeyColumn {
    static constexpr quint32 noText = std::numeric_limits<quint32>::max();
    /// Behind all others: a year or track may be any int.
    static constexpr qint64 noNumber = std::numeric_limits<qint64>::max();

    QList<quint32> textNumbers; ///< of each song, or noText
    FoldedTexts texts;
    QList<quint32> ranks; ///< of `texts`; empty until something was sorted by them
    QList<qint64> numbers; ///< of each song, or noNumber
};

/// The keys of the songs of a list, made when they are first needed and kept since then: each song
/// is asked for a field once, and its text is folded and ranked once.
class SongKeys {
public:
    void clear();

    /// Makes the keys that are missing until the deadline; whether all are there. `songs` has
    /// grown since the last call at most.
    [[nodiscard]] bool makeKeys(const SongList &songs, const SongKeyList &keys,
                                QDeadlineTimer deadline = QDeadlineTimer::Forever);
    /// Makes those anew that were made before.
    void songChanged(qsizetype position, SongFile &song);
    /// Has the keys made again.
    void forget(SongKey key);

    [[nodiscard]] SongKeyColumn column(SongKey key) const;
    void setRanks(SongKey key, const QList<quint32> &ranks);

private:
    struct Column {
        SongKeyColumn keys;
        TextPool pool;
        qsizetype count = 0; ///< songs, from the first on
    };

    void addUpTo(qsizetype end, const SongList &songs, SongKey key);
    static void add(Column &column, SongKey key, SongFile &song);
    static void changeText(Column &column, qsizetype position, const std::optional<QString> &text);
    [[nodiscard]] Column &columnOf(SongKey key);

    std::array<Column, songKeyCount> mColumns;
};
