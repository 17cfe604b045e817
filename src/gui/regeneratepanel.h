#pragma once

#include "app/regenerationrun.h"
#include "gui/maincontroller.h"
#include "gui/regeneratelist.h"

#include <QTimer>
#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;
class QTableView;

/// A window with the songs whose tags are damaged, which can be written anew with what is sound in
/// them.
class RegeneratePanel : public QWidget {
    Q_OBJECT

public:
    RegeneratePanel(MainController &controller, QWidget *window);

    /// Shows the panel with these songs.
    void regenerate(const SongList &songs);
    /// The same, and lets the user go on with what is in hand.
    void setCorruptSongsArray(const SongList &songs);

    [[nodiscard]] RegenerateList &list() { return *mList; }

private:
    void setUpParts();
    [[nodiscard]] QTableView *table();
    [[nodiscard]] QWidget *buttons();
    void begin(const SongList &songs);
    void regenerateSelected();
    void songDone(const std::shared_ptr<SongFile> &song, const QString &error, bool canBeUndone);
    void finished(const TagEditResult &result);
    void validateInterface();

    MainController &mController;
    RegenerateList *mList;
    RegenerationRun mRun;
    QTimer mValidation; ///< soon after a change
    QTableView *mTable = nullptr;
    QProgressBar *mProgress = nullptr;
    QPushButton *mSelected = nullptr;
    QPushButton *mAll = nullptr;
    QPushButton *mStop = nullptr;
};
