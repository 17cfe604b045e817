#pragma once

#include "tags/id3contents.h"
#include "tags/tagoptions.h"

#include <QByteArrayView>

#include <optional>

class SongBytes;

namespace ID3Reader {

/// Reads the tags of the file. Nothing when it cannot be read at all; the reason is logged.
std::optional<ID3Contents> contentsOf(const SongBytes &song, const ReadOptions &options);

/// `tag`: the bytes of a whole ID3v2 tag, header included; none of them does nothing. Throws
/// MalformedData where the read as a whole fails.
void getAttributesFromID3v2(QByteArrayView tag, const ReadOptions &options, ID3Contents &into);

} // namespace ID3Reader
