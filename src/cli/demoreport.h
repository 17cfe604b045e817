#pragma once

#include "app/worklist.h"

#include <QString>
#include <QStringList>

#include <vector>

// What the demo prints, in lines of at most 80 columns.

/// What is shown of a song's tag.
struct SongView {
    QString version; ///< of the tag; empty when there is none
    QStringList fields; ///< one line for each field that is shown; empty: a gap
};

[[nodiscard]] SongView viewOf(const AudioInfoTag &tag);

/// A song's fields before and after, with the source of each that changed.
[[nodiscard]] QString changesAsText(const SongView &before, const SongView &after,
                                    const SongOutcome &outcome);

/// How many fields of which kind each source filled; sources in the order of `sources`, songs of
/// the same album last.
[[nodiscard]] QString sourcesAsTable(const std::vector<SongOutcome> &outcomes,
                                     const QStringList &sources);
