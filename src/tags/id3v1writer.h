#pragma once

#include "tags/framestore.h"
#include "tags/id3dialect.h"

#include <QByteArray>

/// The 128 bytes at the end of a song file.
namespace ID3Writer {

/// Whether nothing of title, artist, album, year, track, genre, comment and pictures would be
/// lost in an ID3v1.1 tag. Lyrics, BPM and the compilation flag are lost in silence, unless the
/// dialect loses nothing: then every frame must fit.
[[nodiscard]] bool canWriteID3v11WithoutLoss(const FrameStore &frames, const ID3Dialect &dialect);

/// An ID3v1.1 tag. `previous`: the tag that it replaces, or nothing; in a dialect that loses
/// nothing the comment stays as it is there, and so does every field that the frames never held.
[[nodiscard]] QByteArray dataForID3v11(const FrameStore &frames, const ID3Dialect &dialect,
                                       const QByteArray &previous);

} // namespace ID3Writer
