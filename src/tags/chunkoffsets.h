#pragma once

class Atom;

/// The tables of an MP4 file that say where in it sound and pictures stand.
namespace ChunkOffsets {

/// Brings every table of a changed tree in line with the places to which its top-level atoms
/// will move: each entry follows the atom that it pointed into. That is the first track's 'stco'
/// and those of all others, 'co64', 'saio', and the offsets of fragments ('tfhd', 'tfra').
///
/// False when a table cannot be put right: the file must then stay as it is.
/// `file`: the tree of a whole file. Throws MalformedData when a table cannot be read.
[[nodiscard]] bool adjustChunkOffsets(Atom &file);

} // namespace ChunkOffsets
