#include "gui/editingcommands.h"

#include "gui/filemanager.h"
#include "gui/lyricsinspector.h"
#include "gui/regeneratepanel.h"
#include "gui/standardisegenre.h"
#include "gui/tagpasting.h"

#include <QClipboard>
#include <QGuiApplication>

EditingCommands::EditingCommands(MainController &controller, const Commands &commands,
                                 ArtworkWell &well, QWidget &window)
    : QObject(&window)
    , mController(controller)
    , mCommands(commands)
    , mWell(well)
    , mWindow(window)
    , mArtwork(controller, well, window)
    , mLyrics(new ::LyricsInspector(controller, &window))
    , mRegenerate(new RegeneratePanel(controller, &window))
{
    connectHistory();
    connectArtwork();
    connectLyrics();
    connectTags();
}

template<typename Slot>
void EditingCommands::on(MenuCommand command, Slot slot)
{
    connect(&mCommands[command], &QAction::triggered, this, slot);
}

void EditingCommands::connectHistory()
{
    using enum MenuCommand;
    on(Undo, [this] { mController.undo(); });
    on(Redo, [this] { mController.redo(); });
    connect(&mController, &MainController::historyChanged, this, &EditingCommands::validateHistory);
    validateHistory();
}

void EditingCommands::validateHistory()
{
    using enum MenuCommand;
    const auto name = [this](MenuCommand command, const QString &plain, const QString &named,
                             const QString &change) {
        mCommands[command].setEnabled(!change.isEmpty());
        mCommands[command].setText(change.isEmpty() ? plain : named.arg(change));
    };
    const EditHistory &history = mController.history();
    name(Undo, qtTrId("MenuUndo"), qtTrId("MenuUndoNamed"), history.undoName());
    name(Redo, qtTrId("MenuRedo"), qtTrId("MenuRedoNamed"), history.redoName());
}

void EditingCommands::connectArtwork()
{
    using enum MenuCommand;
    on(AddArtwork, [this] { mArtwork.addArtwork(); });
    on(PasteArtwork, [this] { mArtwork.pasteArtwork(); });
    on(ReplaceArtwork, [this] { mArtwork.replaceArtwork(); });
    on(RemoveArtwork, [this] { mArtwork.removeArtwork(); });
    on(RemoveAllArtwork, [this] { mArtwork.removeAllArtwork(); });
    on(SaveArtwork, [this] { mArtwork.saveArtwork(); });
    connect(&mWell, &ArtworkWell::artworkChanged, this, &EditingCommands::validateArtwork);
    validateArtwork();
}

/// Of songs whose pictures differ there may be some to remove.
void EditingCommands::validateArtwork()
{
    using enum MenuCommand;
    const bool hasSelection = !mController.selectedSongs().empty();
    const bool hasPicture = mWell.shownPicture().has_value();
    const bool isMixed = mWell.artwork().isMixed;
    mCommands[AddArtwork].setEnabled(hasSelection);
    mCommands[PasteArtwork].setEnabled(hasSelection);
    mCommands[ReplaceArtwork].setEnabled(hasPicture || isMixed);
    mCommands[RemoveArtwork].setEnabled(hasPicture);
    mCommands[RemoveAllArtwork].setEnabled(hasPicture || isMixed);
    mCommands[SaveArtwork].setEnabled(hasPicture);
}

void EditingCommands::connectLyrics()
{
    using enum MenuCommand;
    QAction &inspector = mCommands[MenuCommand::LyricsInspector];
    inspector.setChecked(mLyrics->isVisible());
    on(MenuCommand::LyricsInspector, [this] { mLyrics->toggle(); });
    connect(mLyrics, &::LyricsInspector::visibilityChanged, &inspector, &QAction::setChecked);
    on(RemoveLyrics, [this] { removeLyrics(mController, mWindow); });
}

void EditingCommands::connectTags()
{
    using enum MenuCommand;
    on(RevealFile, &EditingCommands::revealFiles);
    on(CopyTags, [this] { copyTags(mController, mWindow); });
    on(PasteTags, [this] { pasteTags(mController, mWindow); });
    on(StandardiseGenre, [this] { standardiseGenre(mController, mWindow); });
    on(Regenerate, [this] { mRegenerate->regenerate(mController.selectedSongs()); });
    connect(&mController, &MainController::selectionChanged, this, &EditingCommands::validateTags);
    connect(&mController, &MainController::selectionChanged, this,
            &EditingCommands::validateArtwork);
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this,
            &EditingCommands::validateTags);
    validateTags();
}

void EditingCommands::validateTags()
{
    using enum MenuCommand;
    const bool hasSelection = !mController.selectedSongs().empty();
    for (const MenuCommand command :
         {RevealFile, CopyTags, StandardiseGenre, Regenerate, RemoveLyrics})
        mCommands[command].setEnabled(hasSelection);
    mCommands[PasteTags].setEnabled(hasSelection && canPasteTags());
}

void EditingCommands::revealFiles()
{
    QStringList paths;
    for (const auto &song : mController.selectedSongs())
        paths << song->path();
    showInFileManager(paths, this, [this](const QString &folder) {
        mController.engine().log.addLog(qtTrId("ErrorNoFileManager").arg(folder), LogColor::Error);
    });
}
