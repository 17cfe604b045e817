#pragma once

#include "gui/commands.h"
#include "gui/maincontroller.h"

#include <QMainWindow>

class ActivityWindow;
class PreferencesPanel;
class GatheringParts;
class QLineEdit;
class SongTable;
class SourcePopUp;

/// The main window: lays its parts out and connects the commands with what does them.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// The controller must outlive the window.
    explicit MainWindow(MainController &controller);

    void showWelcome();
    void selectAllSongs();

Q_SIGNALS:
    /// Songs and folders, to be filled in by themselves.
    void filesDropped(const QStringList &paths);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void setUpViewMenu();
    void setUpToolBar();
    void setUpParts();
    void connectCommands();
    void connectSongTable();
    void takePaths(const QStringList &paths);
    void showSongsMenu(QPoint position);
    /// Enables what can be done now.
    void validateInterface();
    void showTitle();
    void openFolder();
    void showPreferences();
    void showActivity();
    void showPlaylistNotFound(const QString &name);

    MainController &mController;
    Commands mCommands{this};
    GatheringParts *mGathering;
    SourcePopUp *mSourcePopUp = nullptr;
    QLineEdit *mSearchField = nullptr;
    SongTable *mSongTable = nullptr;
    PreferencesPanel *mPreferences = nullptr; ///< null until it is opened
    ActivityWindow *mActivity = nullptr; ///< null until it is opened
};
