#pragma once

#include <QObject>

class Commands;
class GatheringStatus;
class LogView;
class MainController;
class OptionsDrawer;
class QWidget;
class ReviewPanel;

/// What belongs to runs in the main window, with its commands: the options, the log, the bars, the
/// review and the alerts. The window lays out what is visible of it.
class GatheringParts : public QObject {
    Q_OBJECT

public:
    /// All must outlive this but the window, whom it belongs to.
    GatheringParts(MainController &controller, Commands &commands, QWidget &window);

    [[nodiscard]] OptionsDrawer &drawer() { return *mDrawer; }
    [[nodiscard]] LogView &log() { return *mLog; }
    [[nodiscard]] GatheringStatus &status() { return *mStatus; }

    void showReview();

private:
    void connectCommands(Commands &commands);
    void begin();
    void setDrawerOpen(bool isOpen);

    MainController &mController;
    QWidget &mWindow;
    OptionsDrawer *mDrawer;
    LogView *mLog;
    GatheringStatus *mStatus;
    ReviewPanel *mReview;
    bool mAwaitsReview = false;
};
