#include "gui/editingprogress.h"

namespace {
constexpr int patience = 700; // milliseconds; shorter changes are done before anyone looks
}

EditingProgress::EditingProgress(TagEditing &editing, QWidget *parent)
    : QProgressDialog(parent)
    , mEditing(editing)
{
    setObjectName(QStringLiteral("editingProgress"));
    setLabelText(qtTrId("EditingProgress"));
    setMinimumDuration(patience);
    setAutoReset(false);
    reset(); // or it would show itself without any work
    connect(this, &QProgressDialog::canceled, &editing, &TagEditing::cancel);
    connect(&editing.progress(), &Progress::changed, this, &EditingProgress::show);
    connect(&editing, &TagEditing::busyChanged, this, &EditingProgress::show);
}

void EditingProgress::show()
{
    if (!mEditing.isBusy())
        return reset();
    setMaximum(static_cast<int>(mEditing.progress().maximum()));
    setValue(static_cast<int>(mEditing.progress().value()));
}
