#pragma once

#include "gui/artworkediting.h"
#include "gui/commands.h"
#include "gui/maincontroller.h"

class LyricsInspector;
class RegeneratePanel;

/// Connects the commands that edit songs with what does them, and enables those that can be used.
class EditingCommands : public QObject {
public:
    /// All must outlive this; windows and sheets belong to `window`.
    EditingCommands(MainController &controller, const Commands &commands, ArtworkWell &well,
                    QWidget &window);

private:
    void connectHistory();
    void connectArtwork();
    void connectLyrics();
    void connectTags();
    void revealFiles();
    void validateArtwork();
    void validateHistory();
    void validateTags();
    template<typename Slot>
    void on(MenuCommand command, Slot slot);

    MainController &mController;
    const Commands &mCommands;
    ArtworkWell &mWell;
    QWidget &mWindow;
    ArtworkEditing mArtwork;
    LyricsInspector *mLyrics;
    RegeneratePanel *mRegenerate;
};
