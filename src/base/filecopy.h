#pragma once

#include "base/filerange.h"

#include <system_error>

/// Copies `length` bytes from one open file into another. Blocks are shared instead where both
/// files lie in a file system that can and the offsets are equal up to a multiple of
/// `shareableAlignment`: that costs neither time nor room.
std::error_code copyRange(int from, qint64 fromOffset, int to, qint64 toOffset, qint64 length);

/// Has another open file share blocks with this one, as far as that is possible for the bytes of
/// `range` and those from `toOffset` on. Returns which part of the range is shared.
FileRange shareRange(int from, FileRange range, int to, qint64 toOffset);

/// Copies `length` bytes to another place of the same open file. The two ranges may overlap.
std::error_code moveRange(int file, qint64 fromOffset, qint64 toOffset, qint64 length);

/// A multiple of every block size in use.
constexpr qint64 shareableAlignment = 65536;
