#pragma once

#include "app/sourcemenu.h"
#include "gui/maincontroller.h"

#include <QComboBox>

/// The pop-up menu from which the source of the songs is chosen: a folder, the library, or one of
/// its playlists.
class SourcePopUp : public QComboBox {
    Q_OBJECT

public:
    SourcePopUp(MainController &controller, QWidget *parent);

    /// Asks anew what there is to choose from; the menu shows it when the answer comes.
    void setUpSourceMenu();
    /// Selects the source in use.
    void selectAppropriateSource();

Q_SIGNALS:
    /// The user is to choose one.
    void folderWanted();

private:
    void show(const QList<SourceMenuEntry> &entries);
    void sourceChanged(int index);

    MainController &mController;
};
