#pragma once

#include "app/tagvalues.h"
#include "gathering/asset.h"

/// What a tag holds of the kinds of information that gathering may change: texts that are there,
/// and the pictures. A copy costs next to nothing.
struct SongValues {
    QMap<Asset, QString> texts;
    QList<ID3Image> pictures;

    bool operator==(const SongValues &) const = default;
};

[[nodiscard]] SongValues valuesOf(const AudioInfoTag &tag);

/// The kinds of information in which the two differ.
[[nodiscard]] Assets differences(const SongValues &one, const SongValues &other);

/// The values of `from` for these kinds of information, of `values` for all others.
[[nodiscard]] SongValues replaced(SongValues values, const SongValues &from, Assets which);

/// These kinds of information as they are to be set; a text that is not there is removed.
[[nodiscard]] TagValues tagValues(const SongValues &values, Assets which);
