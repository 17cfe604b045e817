#pragma once

#include "app/tagedit.h"

#include <QProgressDialog>

/// Shows how far a change of many songs is, once it takes longer, and ends it on demand. What was
/// written until then can be undone.
class EditingProgress : public QProgressDialog {
public:
    /// The editing must outlive this.
    EditingProgress(TagEditing &editing, QWidget *parent);

private:
    void show();

    TagEditing &mEditing;
};
