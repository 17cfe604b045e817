#pragma once

#include "cli/arguments.h"
#include "tags/audioinfotag.h"

/// Field assignments of the command line, checked and ready to be made in any number of tags.
class FieldEdit {
public:
    struct Checked;

    /// Reads the artwork file, if one is named, and checks every value.
    [[nodiscard]] static Checked check(const QList<FieldAssignment> &assignments);

    /// Makes the assignments in order. What a tag already holds is left alone, so that a tag
    /// that needs no change does not count as modified.
    void applyTo(AudioInfoTag &tag, const QString &path) const;

private:
    void apply(const FieldAssignment &assignment, AudioInfoTag &tag, const QString &path) const;
    void setArtwork(AudioInfoTag &tag) const;

    QList<FieldAssignment> mAssignments;
    ID3Image mArtwork; ///< without data: artwork is removed
};

struct FieldEdit::Checked {
    FieldEdit edit;
    QString error; ///< empty when every value holds
};
