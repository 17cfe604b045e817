#pragma once

#include "tags/id3contents.h"
#include "tags/id3v2header.h"
#include "tags/tagoptions.h"

#include <QByteArrayView>

/// The frames of ID3v2.3 and ID3v2.4 tags, one routine for both.
namespace ID3v2Frames {

/// More frames, or more strings in them all, are damage: a damaged tag must not cost many times
/// its size in memory.
constexpr int maxFrames = 10'000;

/// `tag` is a whole tag, whose header is `header`. Throws MalformedData where the read as a
/// whole fails.
void getAttributesFromID3v2x(QByteArrayView tag, const ID3v2Header &header,
                             const ReadOptions &options, ID3Contents &into);

} // namespace ID3v2Frames
