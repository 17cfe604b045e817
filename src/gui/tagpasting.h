#pragma once

#include "app/tagclipboard.h"
#include "gui/changesheet.h"
#include "gui/maincontroller.h"

class QCheckBox;

/// Asks which fields of copied tags are pasted, and shows into which songs.
class PasteTagsSheet : public ChangeSheet {
    Q_OBJECT

public:
    PasteTagsSheet(const TagClipboard::Tags &tags, const SongList &songs, QWidget *parent);

    [[nodiscard]] QList<TagClipboard::Field> chosenFields() const;

private:
    std::vector<QCheckBox *> mBoxes; ///< one for each of TagClipboard::fields()
};

/// Puts the tags of the selected songs on the clipboard.
void copyTags(MainController &controller, QWidget &window);

/// Opens the sheet for what is on the clipboard, and changes what the user agrees to.
void pasteTags(MainController &controller, QWidget &window);

/// Whether there are tags on the clipboard.
[[nodiscard]] bool canPasteTags();
