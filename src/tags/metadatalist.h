#pragma once

class Atom;

/// The metadata list in the tree of a whole file, 'ilst' at "moov:udta:meta:ilst"; made where
/// there is none, in the layout that other programs read, with room to grow. Throws MalformedData
/// when the file has no 'moov', or keeps other metadata in the list's place.
namespace MetadataList {

[[nodiscard]] Atom &findOrMake(Atom &file);

} // namespace MetadataList
