#include "gui/mainwindow.h"

#include "gui/activitywindow.h"
#include "gui/artworkwell.h"
#include "gui/editingcommands.h"
#include "gui/editingprogress.h"
#include "gui/firstsize.h"
#include "gui/gatheringparts.h"
#include "gui/gatheringstatus.h"
#include "gui/loadingpanel.h"
#include "gui/logview.h"
#include "gui/optionsdrawer.h"
#include "gui/pathdrops.h"
#include "gui/preferencespanel.h"
#include "gui/songtable.h"
#include "gui/sortmenu.h"
#include "gui/sourcepopup.h"
#include "gui/unansweredsongs.h"
#include "gui/welcomesheet.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QProcess>
#include <QSplitter>
#include <QTextDocument>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWindow>

#include <chrono>

namespace {
constexpr QSize firstSize(1360, 840); // pixels, with all parts
const Setting<QByteArray> windowPlace{"mainWindowGeometry", {}};
constexpr int searchFieldWidth = 220; // pixels
constexpr int margin = 6; // pixels
constexpr std::chrono::milliseconds patienceWithScreen{100};
/// Of the height that the songs and the log share.
constexpr int partOfSongs = 4;
constexpr int partOfLog = 1;
} // namespace

MainWindow::MainWindow(MainController &controller)
    : mController(controller)
{
    setObjectName(QStringLiteral("mainWindow"));
    if (!restoreGeometry(windowPlace.value(controller.prefs().settings())))
        resize(firstSizeOf(*this, firstSize));
    showTitle();
}

/// What the user does meanwhile waits for the parts.
void MainWindow::paintEmpty()
{
    show();
    raise();
    activateWindow();
    QTimer patience;
    patience.setSingleShot(true);
    patience.start(patienceWithScreen);
    while (!windowHandle()->isExposed() && patience.isActive())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents
                                        | QEventLoop::WaitForMoreEvents);
}

void MainWindow::setUp()
{
    setUpdatesEnabled(false); // all parts appear at once
    mGathering = new GatheringParts(mController, mCommands, *this);
    mCommands.fillMenuBar(*menuBar());
    setUpToolBar();
    setUpParts();
    setUpViewMenu();
    connectCommands();
    connectSongTable();
    validateInterface();
    setUpdatesEnabled(true);
}

/// What the header of the table can do, for the keyboard.
void MainWindow::setUpViewMenu()
{
    constexpr int behindEdit = 2;
    auto *view = new QMenu(qtTrId("MenuView"), this);
    view->addMenu(new SortMenu(mController, view));
    QMenu *columns = view->addMenu(qtTrId("MenuColumns"));
    connect(columns, &QMenu::aboutToShow, mSongTable, [this, columns] {
        columns->clear();
        mSongTable->fillColumnsMenu(*columns);
    });
    menuBar()->insertMenu(menuBar()->actions().at(behindEdit), view);
}

void MainWindow::setUpToolBar()
{
    QToolBar *bar = addToolBar(qtTrId("ToolBarTitle"));
    bar->setObjectName(QStringLiteral("toolBar"));
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonIconOnly);
    mSourcePopUp = new SourcePopUp(mController, this);
    bar->addWidget(mSourcePopUp);
    bar->addSeparator();
    mCommands.fillToolBar(*bar);
    // Texts on all of them would leave no room for the search field in large fonts.
    for (const MenuCommand command : {MenuCommand::Begin, MenuCommand::Stop})
        if (auto *button = qobject_cast<QToolButton *>(bar->widgetForAction(&mCommands[command])))
            button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    auto *space = new QWidget(bar);
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(space);
    mSearchField = new QLineEdit(bar);
    mSearchField->setObjectName(QStringLiteral("searchField"));
    mSearchField->setPlaceholderText(qtTrId("SearchPlaceholder"));
    mSearchField->setAccessibleName(qtTrId("SearchPlaceholder"));
    mSearchField->setClearButtonEnabled(true);
    mSearchField->setMaximumWidth(searchFieldWidth);
    bar->addWidget(mSearchField);
}

void MainWindow::setUpParts()
{
    auto *content = new QWidget(this);
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto *rows = new QSplitter(Qt::Vertical, content);
    auto *songs = new QSplitter(Qt::Horizontal, rows);
    mSongTable = new SongTable(mController, songs);
    songs->addWidget(mSongTable);
    auto *well = new ArtworkWell(mController, mCommands, songs);
    songs->addWidget(well);
    songs->setStretchFactor(0, 1);
    songs->setStretchFactor(1, 0);
    rows->addWidget(&mGathering->log());
    rows->setStretchFactor(0, partOfSongs);
    rows->setStretchFactor(1, partOfLog);
    rows->setChildrenCollapsible(false);
    auto *besideDrawer = new QHBoxLayout;
    besideDrawer->setSpacing(0);
    besideDrawer->addWidget(rows, 1);
    besideDrawer->addWidget(&mGathering->drawer());
    column->addLayout(besideDrawer, 1);
    mGathering->status().setContentsMargins(margin, margin, margin, margin);
    column->addWidget(&mGathering->status());
    setCentralWidget(content);
    new EditingCommands(mController, mCommands, *well, *this);
    new LoadingPanel(mController.songs(), this);
}

void MainWindow::connectCommands()
{
    using enum MenuCommand;
    const auto on = [this](MenuCommand command, auto slot) {
        connect(&mCommands[command], &QAction::triggered, this, slot);
    };
    on(OpenFolder, &MainWindow::openFolder);
    on(Rescan, [this] { mController.rescan(); });
    on(Quit, &MainWindow::close);
    on(Find, [this] { mSearchField->setFocus(Qt::ShortcutFocusReason); });
    on(SelectAll, [this] { mSongTable->selectAll(); });
    auto *unanswered = new UnansweredSongs(mController, this);
    on(RetryUnanswered, [unanswered] { unanswered->askAgain(); });
    on(Preferences, &MainWindow::showPreferences);
    on(Activity, &MainWindow::showActivity);
    on(Welcome, &MainWindow::showWelcome);
    on(About, [this] {
        QMessageBox::about(this, qtTrId("AboutTitle"),
                           qtTrId("AboutText").arg(QStringLiteral(TAGWRIGHT_VERSION)));
    });
    connect(mSourcePopUp, &SourcePopUp::folderWanted, this, &MainWindow::openFolder);
    connect(&mController, &MainController::sourceChanged, this, [this] {
        showTitle();
        mSongTable->setFocus(Qt::OtherFocusReason);
    });
    connect(&mController, &MainController::playlistNotFound, this,
            &MainWindow::showPlaylistNotFound);
    connect(&mController, &MainController::selectionChanged, this, &MainWindow::validateInterface);
    connect(&mController, &MainController::gatheringChanged, this, &MainWindow::validateInterface);
}

void MainWindow::connectSongTable()
{
    new EditingProgress(mController.editing(), this);
    VisibleSongs &shown = mController.shownSongs();
    connect(mSearchField, &QLineEdit::textChanged, &shown, &VisibleSongs::setFilter);
    connect(mSearchField, &QLineEdit::returnPressed, mSongTable,
            [this] { mSongTable->setFocus(Qt::ShortcutFocusReason); });
    connect(&mController.songs(), &LoadedSongs::cleared, mSearchField, &QLineEdit::clear);
    auto *drops = new PathDrops(*this);
    connect(drops, &PathDrops::hovered, mSongTable, &SongTable::showDropTarget);
    connect(drops, &PathDrops::dropped, this, &MainWindow::takePaths);
    connect(mSongTable, &SongTable::contextMenuWanted, this, &MainWindow::showSongsMenu);
}

/// A folder is shown; of songs, what they lack is filled in.
void MainWindow::takePaths(const QStringList &paths)
{
    if (paths.size() == 1 && QFileInfo(paths.first()).isDir())
        mController.setSongLibraryFolder(paths.first());
    else
        Q_EMIT filesDropped(paths);
}

/// What can be done with the selected songs.
void MainWindow::showSongsMenu(QPoint position)
{
    using enum MenuCommand;
    QMenu menu(this);
    menu.addActions({&mCommands[Begin], &mCommands[RevealFile]});
    menu.addSeparator();
    menu.addActions({&mCommands[CopyTags], &mCommands[PasteTags], &mCommands[StandardiseGenre]});
    menu.addSeparator();
    menu.addActions({&mCommands[AddArtwork], &mCommands[PasteArtwork], &mCommands[RemoveArtwork],
                     &mCommands[RemoveLyrics]});
    menu.addSeparator();
    menu.addMenu(new SortMenu(mController, &menu));
    mSongTable->fillColumnsMenu(*menu.addMenu(qtTrId("MenuColumns")));
    menu.exec(position);
}

void MainWindow::validateInterface()
{
    using enum MenuCommand;
    const bool isRunning = mController.workList().isRunning();
    mCommands[Begin].setEnabled(!mController.selectedSongs().empty());
    mCommands[Stop].setEnabled(isRunning);
    mCommands.setBeginAddToMode(isRunning);
}

void MainWindow::showTitle()
{
    const QString title = mController.songs().source().windowTitle;
    setWindowTitle(title.isEmpty() ? QStringLiteral("Tagwright") : title);
}

void MainWindow::openFolder()
{
    const QString folder = QFileDialog::getExistingDirectory(
        this, qtTrId("OpenFolderTitle"), mController.prefs().libraryDirectory());
    if (!folder.isEmpty())
        mController.setSongLibraryFolder(folder);
    mSourcePopUp->selectAppropriateSource();
}

void MainWindow::showPreferences()
{
    if (!mPreferences)
        mPreferences = new PreferencesPanel(mController.engine(), this);
    mPreferences->orderFrontPreferencesPanel();
}

void MainWindow::showActivity()
{
    if (!mActivity)
        mActivity = new ActivityWindow(mController.engine().queue, this);
    mActivity->show();
    mActivity->raise();
    mActivity->activateWindow();
}

void MainWindow::selectAllSongs()
{
    mSongTable->selectAll();
}

/// The demo is a program of its own, which touches nothing of the user's.
void MainWindow::showWelcome()
{
    auto *sheet = new WelcomeSheet(this);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    connect(sheet, &WelcomeSheet::folderWanted, this, &MainWindow::openFolder);
    connect(sheet, &WelcomeSheet::demoWanted, this, [] {
        QProcess::startDetached(QCoreApplication::applicationFilePath(), {QStringLiteral("demo")});
    });
    sheet->open();
}

void MainWindow::showPlaylistNotFound(const QString &name)
{
    auto *sheet = new QMessageBox(QMessageBox::Critical, qtTrId("PlaylistNotFoundTitle"),
                                  qtTrId("PlaylistNotFoundTitle"), QMessageBox::NoButton, this);
    sheet->setInformativeText(Qt::convertFromPlainText(qtTrId("PlaylistNotFoundMessage").arg(name),
                                                       Qt::WhiteSpaceNormal));
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->addButton(qtTrId("PlaylistNotFoundProceed"), QMessageBox::AcceptRole);
    sheet->open();
    mSourcePopUp->setUpSourceMenu();
}

/// A run is stopped first; the song in hand is left as it is. Songs that the user changed are
/// written before the window goes.
void MainWindow::closeEvent(QCloseEvent *event)
{
    Q_EMIT mController.sourceWillChange();
    mController.stopGathering();
    mController.songs().cancel();
    if (mController.editing().isBusy()) {
        connect(&mController, &MainController::historyChanged, this, &MainWindow::close,
                Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
        return event->ignore();
    }
    windowPlace.set(mController.prefs().settings(), saveGeometry());
    event->accept();
}
