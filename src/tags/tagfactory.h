#pragma once

#include "tags/audioinfotag.h"

#include <memory>

class SongBytes;

/// The tag of the song at `path`, of the class that its contents (else its name) ask for, with a
/// title from the file name where it has none. Null when the file is no song that we read.
std::unique_ptr<AudioInfoTag> tagWithPath(const QString &path, const ReadOptions &options);
std::unique_ptr<AudioInfoTag> tagWithBytes(const SongBytes &song, const ReadOptions &options);

/// Why tagWithPath() gave no tag, in one line for the user.
QString whyNoTag(const QString &path);
