#pragma once

#include "tags/aacattributes.h"

class Atom;

/// The metadata list of an MP4 song while it is changed.
namespace AACItems {

/// Puts into the list ('ilst', part of a tree) what was set. Values that were not set stay byte
/// for byte, but for two habits of long standing: a genre number becomes text, and every picture
/// is marked as type 13. Throws MalformedData where an item cannot hold its value.
void apply(const AACAttributes &attributes, Atom &list);

} // namespace AACItems
