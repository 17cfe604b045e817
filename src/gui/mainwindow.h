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
    /// An empty window, which costs next to nothing. The controller must outlive it.
    explicit MainWindow(MainController &controller);

    /// Shows the window, empty as it is, and returns when it was painted: the user sees the program
    /// while it makes its parts.
    void paintEmpty();
    /// Puts the parts into the window, once. The engine must be started.
    void setUp();
    [[nodiscard]] bool isSetUp() const { return mSongTable != nullptr; }

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
    GatheringParts *mGathering = nullptr;
    SourcePopUp *mSourcePopUp = nullptr;
    QLineEdit *mSearchField = nullptr;
    SongTable *mSongTable = nullptr;
    PreferencesPanel *mPreferences = nullptr; ///< null until it is opened
    ActivityWindow *mActivity = nullptr; ///< null until it is opened
};
