#pragma once

#include <QtGlobal>

/// Where the values stand in the 128 bytes of an ID3v1.1 tag.
namespace ID3v1Layout {

constexpr qsizetype tagLength = 128;
constexpr qsizetype textLength = 30;
constexpr qsizetype yearLength = 4;
constexpr qsizetype titleAt = 3;
constexpr qsizetype artistAt = 33;
constexpr qsizetype albumAt = 63;
constexpr qsizetype yearAt = 93;
constexpr qsizetype commentAt = 97;
constexpr qsizetype zeroBeforeTrackAt = 125;
constexpr qsizetype trackAt = 126;
constexpr qsizetype genreAt = 127;

} // namespace ID3v1Layout
