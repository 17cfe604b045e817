#pragma once

#include <QAction>
#include <QMenuBar>
#include <QToolBar>

#include <map>

/// Everything that the menus offer.
enum class MenuCommand {
    OpenFolder,
    Rescan,
    RevealFile,
    Quit,
    Undo,
    Redo,
    CopyTags,
    PasteTags,
    SelectAll,
    Find,
    Preferences,
    Begin,
    Stop,
    ShowOptions,
    Review,
    RetryUnanswered,
    StandardiseGenre,
    Regenerate,
    AddArtwork,
    PasteArtwork,
    ReplaceArtwork,
    RemoveArtwork,
    RemoveAllArtwork,
    SaveArtwork,
    LyricsInspector,
    RemoveLyrics,
    Activity,
    CopyLog,
    ClearLog,
    Welcome,
    About,
};

/// The actions behind menus, toolbar and shortcuts. What each does is connected by whoever does it.
class Commands : public QObject {
public:
    explicit Commands(QObject *parent);

    [[nodiscard]] QAction &operator[](MenuCommand command) const { return *mActions.at(command); }

    void fillMenuBar(QMenuBar &bar) const;
    /// The commands alone; what else belongs into the toolbar stands around them.
    void fillToolBar(QToolBar &bar) const;

    /// Whether the begin command adds to a run under way.
    void setBeginAddToMode(bool adds);

private:
    std::map<MenuCommand, QAction *> mActions;
};
