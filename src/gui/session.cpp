#include "gui/session.h"

#include "base/log.h"
#include "gui/releasealert.h"
#include "gui/welcomesheet.h"

#include <QApplication>
#include <QTimer>

#include <utility>

Session::Session(Engine &engine)
    : mEngine(engine)
{
    connect(&engine.update, &DefinitionsUpdate::releaseAnnounced, this, &Session::announce);
    connect(&mInstance, &SingleInstance::startedAgain, this, &Session::openPaths);
}

/// Where nobody can be listened to, each start runs by itself.
void Session::listen()
{
    if (!mInstance.listen())
        qCWarning(logGui, "later starts cannot hand over what they are to open");
}

void Session::paintMainWindow()
{
    makeMainWindow();
    mMainWindow->paintEmpty();
}

void Session::makeMainWindow()
{
    mController = std::make_unique<MainController>(mEngine);
    mMainWindow = std::make_unique<MainWindow>(*mController);
    connect(mMainWindow.get(), &MainWindow::filesDropped, this, &Session::openPaths);
}

MainWindow &Session::mainWindow()
{
    if (!mMainWindow)
        makeMainWindow();
    if (!mMainWindow->isSetUp())
        mMainWindow->setUp();
    return *mMainWindow;
}

void Session::showInFront(MainWindow &window)
{
    window.show();
    window.raise();
    window.activateWindow();
}

/// The window comes first, its songs afterwards.
void Session::openMainWindow()
{
    const bool isFirst = !mMainWindow || !mMainWindow->isSetUp();
    MainWindow &window = mainWindow();
    showInFront(window);
    if (!isFirst)
        return;
    if (WelcomeSheet::isNeeded(mEngine.prefs.settings()))
        QTimer::singleShot(0, &window, &MainWindow::showWelcome);
    else
        QTimer::singleShot(0, mController.get(), &MainController::rescan);
}

void Session::openMainWindow(const QString &folder)
{
    MainWindow &window = mainWindow();
    showInFront(window);
    connect(&mController->songs(), &LoadedSongs::loadFinished, &window, &MainWindow::selectAllSongs,
            Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
    QTimer::singleShot(0, mController.get(),
                       [this, folder] { mController->setSongLibraryFolder(folder); });
}

void Session::openPaths(const QStringList &paths)
{
    if (paths.isEmpty())
        return openMainWindow();
    if (!mDropWindow) {
        mDropWindow = std::make_unique<DropWindow>(mEngine);
        DropList &dropped = mDropWindow->dropList();
        connect(&dropped, &DropList::songChanged, this,
                [this](const std::shared_ptr<SongFile> &song) { mChangedPaths << song->path(); });
        connect(&dropped, &DropList::finished, this, &Session::showDroppedChanges);
        connect(mDropWindow.get(), &DropWindow::dismissed, this, [this] {
            if (!mMainWindow || !mMainWindow->isVisible())
                QCoreApplication::quit();
        });
    }
    mDropWindow->open(paths, mController ? mController->songs().allSongs() : SongList());
}

/// Once for a whole list, since every song of the table is looked at.
void Session::showDroppedChanges()
{
    const QSet<QString> paths = std::exchange(mChangedPaths, {});
    if (mController)
        mController->refreshSongs(paths);
}

/// In front of what is asked already, such as the welcome at the first start.
void Session::announce(const ReleaseAnnouncement &release)
{
    QWidget *asked = QApplication::activeModalWidget();
    showReleaseAlert(release, asked ? asked : mMainWindow.get());
}
