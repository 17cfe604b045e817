#pragma once

#include "base/filecontents.h"
#include "base/filerange.h"

#include <system_error>
#include <vector>

/// One range of a file that gets other bytes.
struct PlannedWrite {
    FileRange range; ///< in the new file
    QByteArray bytes; ///< the new bytes; when empty they come from the old file
    qint64 keptOffset = 0; ///< where in the old file
};

/// The least that turns an old file into a new one: what is equal in both is in no write.
struct WritePlan {
    qint64 oldSize = 0;
    qint64 newSize = 0;
    std::vector<PlannedWrite> writes; ///< ascending, without overlap

    [[nodiscard]] bool isEmpty() const { return writes.empty() && oldSize == newSize; }

    /// The ranges of the old file that are lost, ascending, neither overlapping nor touching.
    [[nodiscard]] std::vector<FileRange> lostRanges() const;
};

/// Compares the open file of `oldSize` bytes with what it shall hold.
std::error_code planWrite(int file, qint64 oldSize, const FileContents &contents, WritePlan &plan);
