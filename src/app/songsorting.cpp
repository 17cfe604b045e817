#include "app/songsorting.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace {

constexpr int wordBits = 64;

/// One song, with the values that it is compared by packed into two numbers.
struct Packed {
    quint64 high = 0;
    quint64 low = 0;
    quint32 place = 0; ///< as it stands now
    quint32 position = 0;
};

struct ByHigh {
    bool operator()(const Packed &song, const Packed &other) const
    {
        return song.high != other.high ? song.high < other.high : song.place < other.place;
    }
};

struct ByBoth {
    bool operator()(const Packed &song, const Packed &other) const
    {
        if (song.high != other.high)
            return song.high < other.high;
        return song.low != other.low ? song.low < other.low : song.place < other.place;
    }
};

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

/// Puts the values of the columns behind each other. Numbers have 33 bits at most, and texts as
/// many as their songs need to be counted: two words hold those of a hundred million songs.
class Packing {
public:
    explicit Packing(const QList<quint32> &positions)
        : mSongs(static_cast<std::size_t>(positions.size()))
    {
        for (std::size_t place = 0; place < mSongs.size(); ++place) {
            mSongs[place].place = static_cast<quint32>(place);
            mSongs[place].position = positions.at(static_cast<qsizetype>(place));
        }
    }

    void append(const Ordinals &ordinals)
    {
        const int bits = ordinals.bits();
        if (mUsed + bits > wordBits && mWord == &Packed::high) {
            mWord = &Packed::low;
            mUsed = 0;
        }
        mUsed += bits;
        Q_ASSERT(mUsed <= wordBits);
        for (Packed &song : mSongs)
            song.*mWord = (bits < wordBits ? song.*mWord << bits : 0) | ordinals[song.position];
    }

    [[nodiscard]] QList<quint32> sorted(Qt::SortOrder order)
    {
        if (order == Qt::DescendingOrder)
            turnRound();
        if (mWord == &Packed::high)
            std::sort(mSongs.begin(), mSongs.end(), ByHigh());
        else
            std::sort(mSongs.begin(), mSongs.end(), ByBoth());
        QList<quint32> positions;
        positions.reserve(static_cast<qsizetype>(mSongs.size()));
        for (const Packed &song : mSongs)
            positions.append(song.position);
        return positions;
    }

private:
    /// The places stay, so that equal songs do.
    void turnRound()
    {
        for (Packed &song : mSongs) {
            song.high = ~song.high;
            song.low = ~song.low;
        }
    }

    std::vector<Packed> mSongs;
    quint64 Packed::*mWord = &Packed::high;
    int mUsed = 0;
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
    Packing packing(input.positions);
    for (qsizetype i = 0; i < input.columns.size(); ++i) {
        SongKeyColumn &column = input.columns[i];
        // Versions are no numbers: "2.10" comes before "2.4".
        const bool isVersion = input.keys.at(i) == SongKey::Version;
        if (column.ranks.size() != column.texts.size())
            column.ranks =
                ranksOf(column.texts, isVersion ? Digits::AsCharacters : Digits::AsNumbers);
        packing.append(Ordinals(column));
        outcome.ranks.append(column.ranks);
    }
    outcome.positions = packing.sorted(input.order);
    return outcome;
}
