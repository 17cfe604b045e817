#pragma once

#include "tags/aacattributes.h"
#include "tags/tagoptions.h"

#include <QDateTime>
#include <QString>

class Atom;

/// Puts a tag into an MP4 song.
namespace AACRewrite {

/// Changes the metadata list of the file, and nothing else of it but the modification time and
/// what moves. The atoms are read afresh from the open file; one that has no 'moov', or whose
/// sound could not be found any more, is refused.
[[nodiscard]] InPlaceFile::Outcome rewrite(const QString &path, const AACAttributes &attributes,
                                           const WriteOptions &options);

/// Writes the time into the headers of the movie, its first track, and that track's media, as far
/// as they have room for it. `file`: the tree of a whole file. False for an invalid time.
bool setModifiedTime(const QDateTime &time, Atom &file);

} // namespace AACRewrite
