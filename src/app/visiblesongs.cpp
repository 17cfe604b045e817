#include "app/visiblesongs.h"

#include "app/songfilter.h"
#include "base/background.h"

#include <chrono>
#include <numeric>
#include <utility>

namespace {
constexpr std::chrono::milliseconds timeOfATurn{5};
/// Shorter lists are sorted before anybody sees them as they were.
constexpr qsizetype shortList = 2'000; // songs
constexpr quint32 noRow = std::numeric_limits<quint32>::max();
} // namespace

/// All that sorting and searching needs, as it was when it began.
struct VisibleSongs::Input {
    quint32 wish = 0;
    std::optional<SortInput> sort;
    QList<quint32> order;
    QString filter;
    QList<SongKeyColumn> filterColumns;
};

struct VisibleSongs::Outcome {
    quint32 wish = 0;
    SongKeyList sortKeys;
    QList<QList<quint32>> ranks;
    QList<quint32> order;
    QList<quint32> rows;
};

VisibleSongs::VisibleSongs(LoadedSongs &loaded)
    : mLoaded(loaded)
{
    mNextTurn.setSingleShot(true);
    connect(&mNextTurn, &QTimer::timeout, this, &VisibleSongs::work);
    connect(&loaded, &LoadedSongs::aboutToBeCleared, this, &VisibleSongs::clear);
    connect(&loaded, &LoadedSongs::songsAdded, this, &VisibleSongs::append);
    connect(&loaded, &LoadedSongs::loadFinished, this, &VisibleSongs::finishLoading);
    append(static_cast<qsizetype>(loaded.allSongs().size()));
}

const std::shared_ptr<SongFile> &VisibleSongs::songAtPosition(quint32 position) const
{
    return mLoaded.allSongs()[position];
}

const std::shared_ptr<SongFile> &VisibleSongs::songAt(int row) const
{
    return songAtPosition(mRows.at(row));
}

int VisibleSongs::rowOf(const SongFile &song) const
{
    const auto position = mPositions.constFind(&song);
    const quint32 row =
        position == mPositions.cend() ? noRow : mRowOfPosition.at(qsizetype{*position});
    return row == noRow ? -1 : static_cast<int>(row);
}

SongList VisibleSongs::songs() const
{
    SongList songs;
    songs.reserve(static_cast<std::size_t>(mRows.size()));
    for (const quint32 position : mRows)
        songs.push_back(songAtPosition(position));
    return songs;
}

QList<int> VisibleSongs::rowsOfPositions(const QList<quint32> &positions) const
{
    std::vector<bool> isTheirs(static_cast<std::size_t>(mRows.size()));
    for (const quint32 position : positions)
        if (const quint32 row = mRowOfPosition.value(position, noRow); row != noRow)
            isTheirs[row] = true;
    QList<int> rows;
    for (std::size_t row = 0; row < isTheirs.size(); ++row)
        if (isTheirs[row])
            rows.append(static_cast<int>(row));
    return rows;
}

void VisibleSongs::sortBy(const Sorting &sorting)
{
    setSorting(sorting);
    mMustSort = true;
    takeUp();
}

void VisibleSongs::sortAgain(SongColumn ifSortedBy)
{
    if (mSorting && mSorting->column == ifSortedBy)
        sortBy(*mSorting);
}

void VisibleSongs::clearSorting()
{
    setSorting(std::nullopt);
}

void VisibleSongs::setSorting(const std::optional<Sorting> &sorting)
{
    if (std::exchange(mSorting, sorting) != sorting)
        Q_EMIT sortingChanged();
}

void VisibleSongs::setFilter(const QString &text)
{
    if (mFilter == text)
        return;
    mFilter = text;
    takeUp();
}

void VisibleSongs::songsChanged(const SongList &songs)
{
    int first = size();
    int last = -1;
    for (const auto &song : songs) {
        const auto position = mPositions.constFind(song.get());
        if (position == mPositions.cend())
            continue;
        mKeys.songChanged(*position, *song);
        const int row = rowOf(*song);
        first = row < 0 ? first : std::min(first, row);
        last = std::max(last, row);
    }
    if (last >= 0)
        Q_EMIT songsChangedInRows(first, last);
}

/// The filter goes with the songs that it was typed for; the order stays for the next ones.
void VisibleSongs::clear()
{
    Q_EMIT rowsAboutToChange();
    ++mWish;
    mNextTurn.stop();
    mKeys.clear();
    mPositions.clear();
    mOrder.clear();
    mFilter.clear();
    mMustSort = false;
    setRows({});
    Q_EMIT rowsChanged();
}

void VisibleSongs::append(qsizetype count)
{
    const auto first = static_cast<quint32>(mOrder.size());
    const auto end = first + static_cast<quint32>(count);
    QList<quint32> rows;
    for (quint32 position = first; position < end; ++position) {
        mPositions.insert(songAtPosition(position).get(), position);
        mOrder.append(position);
        mRowOfPosition.append(noRow);
        if (passes(position))
            rows.append(position);
    }
    if (rows.isEmpty())
        return;
    Q_EMIT rowsAboutToBeAppended(size(), size() + static_cast<int>(rows.size()) - 1);
    for (const quint32 position : std::as_const(rows)) {
        mRowOfPosition[position] = static_cast<quint32>(mRows.size());
        mRows.append(position);
    }
    Q_EMIT rowsAppended();
}

bool VisibleSongs::passes(quint32 position) const
{
    if (mFilter.isEmpty())
        return true;
    const AudioInfoTag *tag = songAtPosition(position)->infotag();
    return tag && tag->matchString(mFilter);
}

/// A source may have an order of its own, in which it is shown from then on.
void VisibleSongs::finishLoading()
{
    const auto column = columnWithOrder(mLoaded.source().order);
    if (column && !(mSorting && mSorting->column == *column))
        sortBy({*column, Qt::AscendingOrder});
    else if (mSorting)
        sortBy(*mSorting);
}

void VisibleSongs::takeUp()
{
    ++mWish;
    mKeys.forget(SongKey::Activity); // it changes untold
    if (mOrder.size() <= shortList)
        work();
    else if (!mIsAtWork)
        mNextTurn.start();
}

void VisibleSongs::work()
{
    mNextTurn.stop();
    if (!makeKeys())
        return mNextTurn.start();
    if (mOrder.size() <= shortList)
        return adopt(outcomeOf(input()));
    mIsAtWork = true;
    runInBackground([input = input()] { return outcomeOf(input); }, this,
                    [this](const Outcome &outcome) {
                        mIsAtWork = false;
                        if (outcome.wish == mWish)
                            adopt(outcome);
                        else
                            mNextTurn.start();
                    });
}

bool VisibleSongs::makeKeys()
{
    SongKeyList keys = mFilter.isEmpty() ? SongKeyList() : keysOfFilter();
    if (mMustSort && mSorting)
        keys += keysOfOrder(mSorting->column);
    return mKeys.makeKeys(mLoaded.allSongs(), keys, QDeadlineTimer(timeOfATurn));
}

VisibleSongs::Input VisibleSongs::input() const
{
    Input input{mWish, std::nullopt, mOrder, mFilter, {}};
    if (mMustSort && mSorting) {
        input.sort = SortInput{keysOfOrder(mSorting->column), {}, mOrder, mSorting->order};
        for (const SongKey key : std::as_const(input.sort->keys))
            input.sort->columns.append(mKeys.column(key));
    }
    if (!mFilter.isEmpty())
        for (const SongKey key : keysOfFilter())
            input.filterColumns.append(mKeys.column(key));
    return input;
}

VisibleSongs::Outcome VisibleSongs::outcomeOf(Input input)
{
    Outcome outcome{input.wish, {}, {}, input.order, {}};
    if (input.sort) {
        outcome.sortKeys = input.sort->keys;
        SortOutcome sorted = sortedSongs(std::move(*input.sort));
        outcome.ranks = sorted.ranks;
        outcome.order = sorted.positions;
    }
    if (input.filter.isEmpty()) {
        outcome.rows = outcome.order;
        return outcome;
    }
    const std::vector<bool> match = songsThatMatch(input.filter, input.filterColumns);
    for (const quint32 position : std::as_const(outcome.order))
        if (match[position])
            outcome.rows.append(position);
    return outcome;
}

void VisibleSongs::adopt(const Outcome &outcome)
{
    for (qsizetype i = 0; i < outcome.sortKeys.size(); ++i)
        mKeys.setRanks(outcome.sortKeys.at(i), outcome.ranks.at(i));
    QList<quint32> order = outcome.order;
    QList<quint32> rows = outcome.rows;
    appendNewSongs(order, rows);
    mMustSort = false;
    if (rows == mRows) {
        mOrder = order;
        return;
    }
    Q_EMIT rowsAboutToChange();
    mOrder = order;
    setRows(rows);
    Q_EMIT rowsChanged();
}

/// Those that came meanwhile.
void VisibleSongs::appendNewSongs(QList<quint32> &order, QList<quint32> &rows) const
{
    for (auto position = static_cast<quint32>(order.size());
         position < static_cast<quint32>(mOrder.size()); ++position) {
        order.append(position);
        if (passes(position))
            rows.append(position);
    }
}

void VisibleSongs::setRows(const QList<quint32> &rows)
{
    mRows = rows;
    mRowOfPosition = QList<quint32>(mOrder.size(), noRow);
    for (qsizetype row = 0; row < rows.size(); ++row)
        mRowOfPosition[qsizetype{rows.at(row)}] = static_cast<quint32>(row);
}
