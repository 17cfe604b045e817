#pragma once

#include "demo/samplelyrics.h"
#include "demo/samplesite.h"

#include <optional>

// What the sample sites with lyrics share. A song's number is its place among those of its site.

/// A page with lyrics, in the characters that such pages are written in.
[[nodiscard]] SamplePage lyricsPage(const QString &html);

/// The song whose number the request names under "id".
[[nodiscard]] std::optional<SampleLyrics> songAskedFor(const SampleRequest &request,
                                                       const QString &className);

/// The lines with something between them.
[[nodiscard]] QString htmlLines(const SampleLyrics &song, const QString &separator);

/// Whether one of the two names is in the other, whatever their case and signs.
[[nodiscard]] bool sampleNamesOverlap(const QString &one, const QString &other);
