#pragma once

#include "tags/aacattributes.h"

class Atom;

namespace AACReader {

/// The metadata list of a whole file's tree, "FILE:moov:udta:meta:ilst"; null without one.
/// Where several atoms hold user data, the first with a list counts.
[[nodiscard]] Atom *metadataListIn(const Atom &file);

/// The items of the metadata list of a whole file. Throws MalformedData when one cannot be read.
[[nodiscard]] AACAttributes getAttributesFromAACFile(const Atom &file);

} // namespace AACReader
