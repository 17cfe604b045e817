#pragma once

#include "tags/audioinfotag.h"

#include <QMap>

/// Values of some fields of a tag, as they are or as they are to be.
struct TagValues {
    QMap<TagText, QString> texts = {}; ///< an empty text: none
    std::optional<bool> isPartOfCompilation = {};
    std::optional<QList<ID3Image>> images = {};

    [[nodiscard]] bool isEmpty() const
    {
        return texts.isEmpty() && !isPartOfCompilation && !images;
    }
    /// Pictures are equal by their data: what is said about them may be lost in the file.
    [[nodiscard]] bool isSame(const TagValues &as) const;
};

[[nodiscard]] std::optional<QString> textOf(const AudioInfoTag &tag, TagText which);

/// What the file holds in the fields that `fields` has values for. A title that is the file's
/// name for want of one is none.
[[nodiscard]] TagValues valuesOf(const AudioInfoTag &tag, const TagValues &fields);

/// Sets the fields that `values` has; others stay. What the tag already holds is not set, so that
/// a tag that needs no change does not count as modified.
void setValues(AudioInfoTag &tag, const TagValues &values);
