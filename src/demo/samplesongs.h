#pragma once

#include <QString>

/// Makes the demo's songs in `folder`, which must exist: short silent MP3 and AAC files whose
/// tags have gaps. An error is one line for the user; empty when all went well.
[[nodiscard]] QString makeSampleSongs(const QString &folder);
