#include "gui/sourcepopup.h"

#include "base/background.h"
#include "gui/icons.h"

#include <QFileInfo>
#include <QStandardItemModel>

namespace {
constexpr int folderIndex = 0;
constexpr int firstAfterFolder = 2; // behind its separator
constexpr int kindRole = Qt::UserRole;
constexpr int minimumLetters = 16;

int indexOfKind(const QComboBox &menu, SourceMenuEntry::Kind kind, const QString &title = {})
{
    for (int index = firstAfterFolder; index < menu.count(); ++index)
        if (menu.itemData(index, kindRole) == static_cast<int>(kind)
            && (title.isEmpty() || menu.itemText(index) == title))
            return index;
    return -1;
}
} // namespace

SourcePopUp::SourcePopUp(MainController &controller, QWidget *parent)
    : QComboBox(parent)
    , mController(controller)
{
    setObjectName(QStringLiteral("sourcePopUp"));
    setAccessibleName(qtTrId("SourceMenuTitle"));
    setToolTip(qtTrId("SourceMenuTitle"));
    setMinimumContentsLength(minimumLetters);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    addItem(icon(QStringLiteral("Menu-Directory")), qtTrId("SourceMenuFolder"));
    insertSeparator(1);
    connect(this, &QComboBox::activated, this, &SourcePopUp::sourceChanged);
    connect(&controller, &MainController::sourceChanged, this,
            &SourcePopUp::selectAppropriateSource);
    setUpSourceMenu();
}

void SourcePopUp::setUpSourceMenu()
{
    runInBackground(
        [moved = mController.prefs().movedFolders()] { return sourceMenuEntries(moved); }, this,
        [this](const QList<SourceMenuEntry> &entries) { show(entries); });
}

void SourcePopUp::show(const QList<SourceMenuEntry> &entries)
{
    while (count() > firstAfterFolder)
        removeItem(count() - 1);
    for (const SourceMenuEntry &entry : entries) {
        if (entry.kind == SourceMenuEntry::Kind::Separator) {
            insertSeparator(count());
            continue;
        }
        addItem(icon(entry.image), entry.title);
        setItemData(count() - 1, static_cast<int>(entry.kind), kindRole);
        if (entry.kind == SourceMenuEntry::Kind::Hint)
            qobject_cast<QStandardItemModel *>(model())->item(count() - 1)->setEnabled(false);
    }
    selectAppropriateSource();
}

void SourcePopUp::selectAppropriateSource()
{
    const PrefsController &prefs = mController.prefs();
    const QString folder = prefs.libraryDirectory();
    setItemText(folderIndex,
                folder.isEmpty() ? qtTrId("SourceMenuFolder") : QFileInfo(folder).fileName());
    switch (prefs.librarySource().value_or(SourceKind::Folder)) {
    case SourceKind::Folder:
        return setCurrentIndex(folderIndex);
    case SourceKind::Library:
        return setCurrentIndex(indexOfKind(*this, SourceMenuEntry::Kind::Library));
    case SourceKind::Playlist:
        return setCurrentIndex(
            indexOfKind(*this, SourceMenuEntry::Kind::Playlist, prefs.libraryPlaylist()));
    }
}

void SourcePopUp::sourceChanged(int index)
{
    if (index == folderIndex)
        Q_EMIT folderWanted();
    else if (itemData(index, kindRole) == static_cast<int>(SourceMenuEntry::Kind::Library))
        mController.setiTunesLibrary();
    else
        mController.setSongLibraryPlaylist(itemText(index));
}
