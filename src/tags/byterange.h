#pragma once

#include <QtGlobal>

/// A stretch of a file, in bytes; (0, 0) for none.
struct ByteRange {
    qint64 location = 0;
    qint64 length = 0;

    [[nodiscard]] qint64 end() const { return location + length; }
    bool operator==(const ByteRange &) const = default;
};
