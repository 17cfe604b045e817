#pragma once

#include <QtGlobal>

#include <algorithm>

struct FileRange {
    qint64 offset = 0;
    qint64 length = 0;

    [[nodiscard]] constexpr qint64 end() const { return offset + length; }
    [[nodiscard]] constexpr FileRange intersected(const FileRange &other) const
    {
        const qint64 begin = std::max(offset, other.offset);
        return {begin, std::max<qint64>(std::min(end(), other.end()) - begin, 0)};
    }
};
