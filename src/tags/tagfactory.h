#pragma once

#include "tags/audioinfotag.h"

#include <memory>

class SongBytes;

/// The song opened for readTag(); null, with a log line, when it cannot be read.
[[nodiscard]] std::unique_ptr<SongBytes> openForTag(const QString &path);

/// A tag, or why there is none: one line for the user.
struct TagOrReason {
    std::unique_ptr<AudioInfoTag> tag;
    QString reason;
};

/// The tag of the song, of the class that its contents (else its name) ask for, with a title
/// from the file name where it has none.
[[nodiscard]] TagOrReason readTag(const SongBytes &song, const ReadOptions &options);

/// The same for a path; null when the file is no song that we read.
[[nodiscard]] std::unique_ptr<AudioInfoTag> tagWithPath(const QString &path,
                                                        const ReadOptions &options);
