#pragma once

#include <QByteArrayView>

#include <optional>

/// The sizes in the frame headers of v2.3 and v2.4 tags, which other programs wrote as plain
/// numbers or sync-safe, whatever the version asks for. Positions are those of frame headers,
/// with all ten bytes of a header in the tag.
namespace ID3FrameSizes {

constexpr qsizetype frameHeaderLength = 10;

enum class Reading { Plain, SynchSafe };

/// The size field at `position` in one reading.
qint64 sizeAt(QByteArrayView tag, qsizetype position, Reading reading);

/// The size of the frame at `position`: plain, or sync-safe where only that one leads to the
/// tag's end or to what may be another frame or padding. Nothing when neither does.
std::optional<qint64> repairedSize(QByteArrayView tag, qsizetype position);

/// The reading in which all frames from `start` follow one another up to the tag's end or its
/// padding, sync-safe tried first. Nothing when there is none.
std::optional<Reading> readingByFrameChain(QByteArrayView tag, qsizetype start);

} // namespace ID3FrameSizes
