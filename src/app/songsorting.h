#pragma once

#include "app/songcolumns.h"
#include "app/songkeys.h"

/// The keys that the songs of a column are compared by, one after the other.
[[nodiscard]] SongKeyList keysOfOrder(SongColumn column);

/// A list to be sorted, as it was at one time.
struct SortInput {
    SongKeyList keys;
    QList<SongKeyColumn> columns; ///< of `keys`
    QList<quint32> positions; ///< in the list of all songs, as they stand now
    Qt::SortOrder order = Qt::AscendingOrder;
};

struct SortOutcome {
    QList<quint32> positions;
    QList<QList<quint32>> ranks; ///< of the keys; empty for numbers
};

/// Sorts as the SongOrder comparison of the column does, or the other way round; equal songs stay
/// in the order they stand in. On any thread.
[[nodiscard]] SortOutcome sortedSongs(SortInput input);
