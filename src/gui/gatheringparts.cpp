#include "gui/gatheringparts.h"

#include "gui/commands.h"
#include "gui/gatheringstatus.h"
#include "gui/logview.h"
#include "gui/maincontroller.h"
#include "gui/optionsdrawer.h"
#include "gui/preparingpanel.h"
#include "gui/reviewpanel.h"
#include "gui/runalerts.h"

#include <utility>

GatheringParts::GatheringParts(MainController &controller, Commands &commands, QWidget &window)
    : QObject(&window)
    , mController(controller)
    , mWindow(window)
    , mDrawer(new OptionsDrawer(controller.prefs(), controller.workList(), &window))
    , mLog(new LogView(controller.engine().log, &window))
    , mStatus(new GatheringStatus(controller.workList(), &window))
    , mReview(new ReviewPanel(controller.review(), controller.engine().queue, controller.prefs(),
                              &window))
{
    new PreparingPanel(controller.workList().preparation(), window);
    auto *warning = new CompilationWarning(controller.prefs(), &window);
    connect(&controller.workList(), &WorkList::compilationLacksAssets, warning,
            &CompilationWarning::warnAboutCompilationForTrack);
    connect(&controller.review(), &Review::songAdded, this, [this] {
        if (std::exchange(mAwaitsReview, false))
            showReview();
    });
    connectCommands(commands);
}

void GatheringParts::connectCommands(Commands &commands)
{
    using enum MenuCommand;
    const auto on = [&](MenuCommand command, auto call) {
        connect(&commands[command], &QAction::triggered, this, call);
    };
    on(Begin, [this] { begin(); });
    on(Stop, [this] { mController.stopGathering(); });
    on(Review, [this] { showReview(); });
    on(CopyLog, [this] { mLog->copyLines(); });
    on(ClearLog, [this] { mLog->clear(); });
    on(ShowOptions, [this](bool isOpen) { setDrawerOpen(isOpen); });
    const bool isOpen = mController.prefs().drawerIsOpen();
    commands[ShowOptions].setChecked(isOpen);
    mDrawer->setVisible(isOpen);
}

/// The review shows itself once, with the first song that waits in it.
void GatheringParts::begin()
{
    const GatheringOptions options = mController.prefs().gatheringOptions();
    askAboutOverwritingTitles(options, &mWindow, [this, isReviewed = options.review] {
        mAwaitsReview = isReviewed;
        mController.beginGathering();
    });
}

void GatheringParts::setDrawerOpen(bool isOpen)
{
    mController.prefs().setDrawerOpen(isOpen);
    mDrawer->setVisible(isOpen);
}

void GatheringParts::showReview()
{
    mReview->show();
    mReview->raise();
    mReview->activateWindow();
}
