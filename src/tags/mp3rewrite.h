#pragma once

#include "tags/framestore.h"
#include "tags/tagoptions.h"

#include <QString>

/// Puts a tag into a song file.
namespace MP3Rewrite {

/// Replaces the tags of the file, and nothing else of it, by `frames` written as `version`
/// ("1.1" or one that begins with "2.2", "2.3" or "2.4"). Where the tags stand is read afresh
/// from the open file: one that is no such file any more is refused.
[[nodiscard]] InPlaceFile::Outcome rewrite(const QString &path, const FrameStore &frames,
                                           const QString &version, const WriteOptions &options);

} // namespace MP3Rewrite
