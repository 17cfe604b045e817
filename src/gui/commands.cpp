#include "gui/commands.h"

#include "gui/icons.h"

#include <QMenu>

#include <initializer_list>
#include <vector>

namespace {

struct CommandRow {
    MenuCommand command;
    const char *textID;
    QKeySequence shortcut{};
    const char *icon = "";
};

/// A menu; nothing in `entries` separates groups.
struct MenuRow {
    const char *textID;
    std::vector<std::optional<MenuCommand>> entries;
};

std::vector<CommandRow> commandRows()
{
    using enum MenuCommand;
    return {
        {OpenFolder, QT_TRID_NOOP("MenuOpenFolder"), QKeySequence::Open, "Menu-Directory"},
        {Rescan, QT_TRID_NOOP("MenuRescan"), QKeySequence::Refresh, "rescan"},
        {RevealFile, QT_TRID_NOOP("MenuRevealFile"), Qt::CTRL | Qt::SHIFT | Qt::Key_R},
        {Quit, QT_TRID_NOOP("MenuQuit"), QKeySequence::Quit},
        {Undo, QT_TRID_NOOP("MenuUndo"), QKeySequence::Undo, "undo"},
        {Redo, QT_TRID_NOOP("MenuRedo"), QKeySequence::Redo, "redo"},
        {CopyTags, QT_TRID_NOOP("MenuCopyTags"), Qt::CTRL | Qt::SHIFT | Qt::Key_C, "copy"},
        {PasteTags, QT_TRID_NOOP("MenuPasteTags"), Qt::CTRL | Qt::SHIFT | Qt::Key_V, "paste"},
        {SelectAll, QT_TRID_NOOP("MenuSelectAll")}, // the focused part has the usual key itself
        {Find, QT_TRID_NOOP("MenuFind"), QKeySequence::Find, "search"},
        {Preferences, QT_TRID_NOOP("MenuPreferences"), Qt::CTRL | Qt::Key_Comma, "preferences"},
        {Begin, QT_TRID_NOOP("MenuBegin"), Qt::CTRL | Qt::Key_Return, "begin"},
        {Stop, QT_TRID_NOOP("MenuStop"), Qt::CTRL | Qt::Key_Period, "stop"},
        {ShowOptions, QT_TRID_NOOP("MenuShowOptions"), Qt::CTRL | Qt::Key_T, "options"},
        {Review, QT_TRID_NOOP("MenuReview"), Qt::CTRL | Qt::SHIFT | Qt::Key_Return, "review"},
        {RetryUnanswered, QT_TRID_NOOP("MenuRetryUnanswered")},
        {StandardiseGenre, QT_TRID_NOOP("MenuStandardiseGenre"), Qt::CTRL | Qt::Key_G,
         "standardise-genre"},
        {Regenerate, QT_TRID_NOOP("MenuRegenerate"), {}, "regenerate"},
        {AddArtwork, QT_TRID_NOOP("MenuAddArtwork"), Qt::CTRL | Qt::SHIFT | Qt::Key_A,
         "artwork-add"},
        {PasteArtwork, QT_TRID_NOOP("MenuPasteArtwork")},
        {ReplaceArtwork, QT_TRID_NOOP("MenuReplaceArtwork"), {}, "artwork-replace"},
        {RemoveArtwork, QT_TRID_NOOP("MenuRemoveArtwork"), {}, "artwork-remove"},
        {RemoveAllArtwork, QT_TRID_NOOP("MenuRemoveAllArtwork")},
        {SaveArtwork, QT_TRID_NOOP("MenuSaveArtwork"), {}, "artwork-save"},
        {LyricsInspector, QT_TRID_NOOP("MenuLyricsInspector"), Qt::CTRL | Qt::Key_L, "lyrics"},
        {RemoveLyrics, QT_TRID_NOOP("MenuRemoveLyrics")},
        {Activity, QT_TRID_NOOP("MenuActivity"), Qt::CTRL | Qt::Key_0, "activity"},
        {CopyLog, QT_TRID_NOOP("MenuCopyLog")},
        {ClearLog, QT_TRID_NOOP("MenuClearLog"), {}, "clear"},
        {Welcome, QT_TRID_NOOP("MenuWelcome")},
        {About, QT_TRID_NOOP("MenuAbout")},
    };
}

std::vector<MenuRow> menuRows()
{
    using enum MenuCommand;
    constexpr std::nullopt_t separator = std::nullopt;
    return {
        {QT_TRID_NOOP("MenuFile"), {OpenFolder, Rescan, RevealFile, separator, Quit}},
        {QT_TRID_NOOP("MenuEdit"),
         {Undo, Redo, separator, CopyTags, PasteTags, SelectAll, separator, Find, separator,
          Preferences}},
        {QT_TRID_NOOP("MenuSongs"),
         {StandardiseGenre, Regenerate, separator, LyricsInspector, RemoveLyrics}},
        {QT_TRID_NOOP("MenuArtwork"),
         {AddArtwork, PasteArtwork, ReplaceArtwork, separator, RemoveArtwork, RemoveAllArtwork,
          separator, SaveArtwork}},
        {QT_TRID_NOOP("MenuGathering"),
         {Begin, Stop, separator, Review, RetryUnanswered, separator, ShowOptions}},
        {QT_TRID_NOOP("MenuWindow"), {Activity, separator, CopyLog, ClearLog}},
        {QT_TRID_NOOP("MenuHelp"), {Welcome, About}},
    };
}

/// Buttons tell the name alone, and the keys that do the same.
void setTitle(QAction &action, const QString &text)
{
    action.setText(text);
    const QString name = QString(text).remove(u'&').remove(u'…').trimmed();
    const QString keys = action.shortcut().toString(QKeySequence::NativeText);
    action.setIconText(name);
    action.setToolTip(keys.isEmpty() ? name : QStringLiteral("%1 (%2)").arg(name, keys));
}

} // namespace

Commands::Commands(QObject *parent)
    : QObject(parent)
{
    for (const CommandRow &row : commandRows()) {
        auto *action = new QAction(this);
        action->setObjectName(QLatin1String(row.textID));
        action->setShortcut(row.shortcut);
        setTitle(*action, qtTrId(row.textID));
        action->setIcon(icon(QLatin1String(row.icon)));
        mActions.emplace(row.command, action);
    }
    (*this)[MenuCommand::Quit].setMenuRole(QAction::QuitRole);
    (*this)[MenuCommand::Preferences].setMenuRole(QAction::PreferencesRole);
    (*this)[MenuCommand::About].setMenuRole(QAction::AboutRole);
    (*this)[MenuCommand::ShowOptions].setCheckable(true);
    (*this)[MenuCommand::LyricsInspector].setCheckable(true);
}

void Commands::fillMenuBar(QMenuBar &bar) const
{
    for (const MenuRow &row : menuRows()) {
        QMenu *menu = bar.addMenu(qtTrId(row.textID));
        for (const auto &entry : row.entries)
            menu->addAction(entry ? mActions.at(*entry) : menu->addSeparator());
    }
}

void Commands::fillToolBar(QToolBar &bar) const
{
    using enum MenuCommand;
    for (const MenuCommand command :
         {Begin, Stop, Rescan, LyricsInspector, StandardiseGenre, Preferences})
        bar.addAction(mActions.at(command));
}

void Commands::setBeginAddToMode(bool adds)
{
    QAction &begin = (*this)[MenuCommand::Begin];
    setTitle(begin, adds ? qtTrId("MenuAdd") : qtTrId("MenuBegin"));
    begin.setIcon(icon(adds ? QStringLiteral("add") : QStringLiteral("begin")));
}
