#pragma once

#include "tags/framestore.h"
#include "tags/mp3infotag.h"
#include "tags/tagoptions.h"

#include <QByteArrayView>

#include <optional>

class SongBytes;

/// What reading the ID3 tags of a file gave.
struct ID3Contents {
    FrameStore frames;
    std::optional<QString> readVersion;
    ByteRange id3v1Range;
    ByteRange id3v2Range;
    bool encounteredProblem = false;
};

namespace ID3Reader {

/// Reads the tags of the file. Nothing when it cannot be read at all; the reason is logged.
std::optional<ID3Contents> contentsOf(const SongBytes &song, const ReadOptions &options);

// The readers below throw MalformedData where the read as a whole fails.

/// `tag`: the bytes of a whole ID3v2 tag, header included.
void getAttributesFromID3v2(QByteArrayView tag, const ReadOptions &options, ID3Contents &into);

/// `tag`: 128 bytes that begin with "TAG". No value replaces a frame that is already present.
void getAttributesFromID3v1(QByteArrayView tag, ID3Contents &into);

} // namespace ID3Reader
