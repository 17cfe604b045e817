#include "app/songsorting.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <numeric>
#include <span>
#include <utility>

namespace {

/// The values of one column as numbers from 0 on, the missing ones last.
class Ordinals {
public:
    explicit Ordinals(const SongKeyColumn &column)
        : mColumn(column)
        , mIsText(!column.textNumbers.isEmpty())
    {
        if (mIsText)
            mMissing = static_cast<quint64>(column.ranks.size());
        else
            measureNumbers();
    }

    [[nodiscard]] int bits() const { return static_cast<int>(std::bit_width(mMissing)); }
    [[nodiscard]] quint64 operator[](quint32 position) const
    {
        return mIsText ? ofText(mColumn.textNumbers.at(position))
                       : ofNumber(mColumn.numbers.at(position));
    }

private:
    void measureNumbers()
    {
        qint64 last = std::numeric_limits<qint64>::min();
        mFirst = SongKeyColumn::noNumber;
        for (const qint64 number : mColumn.numbers) {
            mFirst = std::min(mFirst, number);
            if (number != SongKeyColumn::noNumber)
                last = std::max(last, number);
        }
        mMissing = last < mFirst ? 0 : static_cast<quint64>(last - mFirst) + 1;
    }

    [[nodiscard]] quint64 ofText(quint32 number) const
    {
        return number == SongKeyColumn::noText ? mMissing : mColumn.ranks.at(number);
    }

    [[nodiscard]] quint64 ofNumber(qint64 number) const
    {
        return number == SongKeyColumn::noNumber ? mMissing : static_cast<quint64>(number - mFirst);
    }

    const SongKeyColumn &mColumn;
    bool mIsText;
    qint64 mFirst = 0;
    quint64 mMissing = 0;
};

/// Sorts songs as plain numbers of 64 bits, of which many are in the processor's cache: the values
/// of as many columns as fit, and in the last bits where the song stands now, so that equal songs
/// stay in their order. Those that are equal so far are sorted by the next columns.
class PackedSongs {
public:
    PackedSongs(const std::vector<Ordinals> &columns, const QList<quint32> &positions,
                Qt::SortOrder order)
        : mColumns(columns)
        , mPositions(positions)
        , mIsDescending(order == Qt::DescendingOrder)
        , mBitsOfPlace(static_cast<int>(std::bit_width(static_cast<quint64>(positions.size()))))
        , mSongs(static_cast<std::size_t>(positions.size()))
    {
        std::iota(mSongs.begin(), mSongs.end(), quint64{0});
    }

    [[nodiscard]] QList<quint32> sorted()
    {
        sort(mSongs, 0);
        QList<quint32> positions;
        positions.reserve(mPositions.size());
        for (const quint64 song : mSongs)
            positions.append(positionOf(song));
        return positions;
    }

private:
    using Songs = std::span<quint64>;

    [[nodiscard]] quint64 placeOf(quint64 song) const
    {
        return song & ((quint64{1} << mBitsOfPlace) - 1);
    }
    [[nodiscard]] quint32 positionOf(quint64 song) const
    {
        return mPositions.at(static_cast<qsizetype>(placeOf(song)));
    }
    [[nodiscard]] quint64 valuesOf(quint64 song) const { return song >> mBitsOfPlace; }

    void sort(Songs songs, std::size_t column)
    {
        const std::size_t end = endOfThoseThatFit(column);
        for (quint64 &song : songs)
            song = packed(song, column, end);
        std::sort(songs.begin(), songs.end());
        if (end < mColumns.size())
            sortEqual(songs, end);
    }

    void sortEqual(Songs songs, std::size_t column)
    {
        for (std::size_t from = 0; from < songs.size();) {
            std::size_t to = from + 1;
            while (to < songs.size() && valuesOf(songs[to]) == valuesOf(songs[from]))
                ++to;
            if (to - from > 1)
                sort(songs.subspan(from, to - from), column);
            from = to;
        }
    }

    /// One does at least: a number has 33 bits at most, and there are fewer than 2^31 songs.
    [[nodiscard]] std::size_t endOfThoseThatFit(std::size_t column) const
    {
        constexpr int all = 64;
        for (int used = mBitsOfPlace; column < mColumns.size(); ++column) {
            used += mColumns[column].bits();
            if (used > all)
                break;
        }
        return column;
    }

    [[nodiscard]] quint64 packed(quint64 song, std::size_t column, std::size_t end) const
    {
        const quint32 position = positionOf(song);
        quint64 values = 0;
        for (; column < end; ++column) {
            const quint64 value = mColumns[column][position];
            const int bits = mColumns[column].bits();
            const quint64 all = (quint64{1} << bits) - 1;
            values = values << bits | (mIsDescending ? all - value : value);
        }
        return values << mBitsOfPlace | placeOf(song);
    }

    const std::vector<Ordinals> &mColumns;
    const QList<quint32> &mPositions;
    bool mIsDescending;
    int mBitsOfPlace;
    std::vector<quint64> mSongs;
};

} // namespace

SongKeyList keysOfOrder(SongColumn column)
{
    using enum SongKey;
    switch (column) {
    case SongColumn::Activity:
        return {Activity};
    case SongColumn::Index:
        return {Index, Title, Artist, Album};
    case SongColumn::Title:
        return {Title, Artist, Album};
    case SongColumn::Artist:
        return {Artist, Album, TrackNumber};
    case SongColumn::Album:
        return {Album, TrackNumber, Title, Artist};
    case SongColumn::Track:
        return {TrackNumber, Album, Title, Artist};
    case SongColumn::Year:
        return {LatestYear, Album, Artist, TrackNumber};
    case SongColumn::Genre:
        return {Genres, Album, Artist};
    case SongColumn::Lyrics:
        return {Lyrics, Album, TrackNumber, Title, Artist};
    case SongColumn::Artwork:
        return {Artworks, Artist, Album, TrackNumber};
    case SongColumn::BPM:
        return {BPM, Title, Artist, Album};
    case SongColumn::Compilation:
        return {Compilation, Album, TrackNumber, Title, Artist};
    case SongColumn::Version:
        return {Version, Album, Artist};
    }
    Q_UNREACHABLE();
}

SortOutcome sortedSongs(SortInput input)
{
    SortOutcome outcome;
    std::vector<Ordinals> ordinals;
    for (qsizetype i = 0; i < input.columns.size(); ++i) {
        SongKeyColumn &column = input.columns[i];
        // Versions are no numbers: "2.10" comes before "2.4".
        const bool isVersion = input.keys.at(i) == SongKey::Version;
        if (column.ranks.size() != column.texts.size())
            column.ranks =
                ranksOf(column.texts, isVersion ? Digits::AsCharacters : Digits::AsNumbers);
        ordinals.emplace_back(column);
        outcome.ranks.append(column.ranks);
    }
    outcome.positions = PackedSongs(ordinals, input.positions, input.order).sorted();
    return outcome;
}
