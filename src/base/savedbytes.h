#pragma once

#include "base/writeplan.h"

/// Where the bytes that a write is going to lose are kept.
struct SavedBytes {
    int file = -1;
    qint64 from = 0; ///< the first of them stands there, or up to `shareableAlignment` further on
};

/// A range of the song and where its bytes stand in the journal.
struct SavedRange {
    FileRange range;
    qint64 at = 0;
};

/// Where the lost ranges of a plan are kept, one after the other. Long ones stand where they can
/// share blocks with the song.
[[nodiscard]] std::vector<SavedRange> savedRanges(const WritePlan &plan, qint64 from);

/// Copies them from the open song, and gives the checksum of them all.
std::error_code saveBytes(int song, const WritePlan &plan, const SavedBytes &saved,
                          quint64 &checksum);

/// The checksum of what is kept.
std::error_code checksumOf(const SavedBytes &saved, const WritePlan &plan, quint64 &checksum);
