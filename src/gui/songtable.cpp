#include "gui/songtable.h"

#include "gui/changesheet.h"
#include "gui/icons.h"
#include "gui/maincontroller.h"
#include "gui/songdelegate.h"
#include "gui/songrowtexts.h"
#include "gui/tablelayout.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

constexpr int roomAroundText = 8; // pixels, of a row's height
/// Qt goes through all ranges of a selection for each cell that it paints.
constexpr qsizetype mostRanges = 1'000;

bool isEditable(const QModelIndex &index)
{
    return index.flags().testFlag(Qt::ItemIsEditable);
}

QString questionOf(SongColumn column, const TagValues &values)
{
    constexpr qsizetype mostShown = 60; // characters
    const QString title = qtTrId(infoOf(column).title);
    if (values.texts.isEmpty())
        return qtTrId("ChangeMarkQuestion").arg(title);
    const QString value = values.texts.first();
    if (value.isEmpty())
        return qtTrId("ChangeToNothingQuestion").arg(title);
    return qtTrId("ChangeColumnQuestion")
        .arg(title, value.size() > mostShown ? value.first(mostShown) + u'…' : value);
}

} // namespace

SongTable::SongTable(MainController &controller, QWidget *parent)
    : QTableView(parent)
    , mController(controller)
    , mModel(controller.shownSongs())
{
    setObjectName(QStringLiteral("songTable"));
    setAccessibleName(qtTrId("SongTableName"));
    setModel(&mModel);
    setItemDelegate(new SongDelegate(this));
    setUpAppearance();
    setUpHeader();
    mTypingPause.setSingleShot(true);
    connect(&mTypingPause, &QTimer::timeout, this, [this] { mTyped.clear(); });
    connect(&mModel, &SongTableModel::valueEntered, this, &SongTable::changeSongs);
    connect(&mModel, &QAbstractItemModel::modelAboutToBeReset, this, &SongTable::rememberSelection);
    connect(&mModel, &QAbstractItemModel::modelReset, this, &SongTable::restoreSelection);
    connect(&controller.shownSongs(), &VisibleSongs::sortingChanged, this, &SongTable::showSorting);
    connect(&controller, &MainController::sourceChanged, this, &SongTable::showIndexOfPlaylist);
    const auto showAgain = [this] { viewport()->update(); };
    connect(&controller.songs(), &LoadedSongs::loadFinished, viewport(), showAgain);
    // Songs wait for their turn in a run, or do so no longer.
    connect(&controller, &MainController::gatheringChanged, viewport(), showAgain);
}

SongTable::~SongTable()
{
    saveColumns();
}

void SongTable::setUpAppearance()
{
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(DoubleClicked | EditKeyPressed);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setTabKeyNavigation(false); // Tab leaves the table, as it does everywhere
    setHorizontalScrollMode(ScrollPerPixel);
    setAcceptDrops(false); // the window does
    setFrameShape(NoFrame);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setRowHeight();
}

void SongTable::setRowHeight()
{
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + roomAroundText);
}

void SongTable::setUpHeader()
{
    QHeaderView &header = *horizontalHeader();
    header.setSectionsMovable(true);
    header.setSectionsClickable(true);
    header.setHighlightSections(false);
    // With the table's one, Qt asks every row of each column for its flags to paint the header.
    header.setSelectionModel(new QItemSelectionModel(&mModel, &header));
    header.setSortIndicatorShown(true);
    header.setTextElideMode(Qt::ElideRight);
    header.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&header, &QWidget::customContextMenuRequested, this, [this](QPoint position) {
        QMenu menu(this);
        fillColumnsMenu(menu);
        menu.exec(horizontalHeader()->mapToGlobal(position));
    });
    connect(&header, &QHeaderView::sectionClicked, this, &SongTable::sortByColumn);
    restoreColumns(header, mController.prefs());
    if (const auto sorting = rememberedSorting(mController.prefs()))
        mController.shownSongs().sortBy(*sorting);
    showSorting();
}

void SongTable::saveColumns() const
{
    rememberColumns(*horizontalHeader(), mController.prefs());
    rememberSorting(mController.shownSongs().sorting(), mController.prefs());
}

void SongTable::fillColumnsMenu(QMenu &menu)
{
    for (const SongColumnInfo &info : songColumns()) {
        if (info.shown == SongColumnInfo::Shown::Always
            || info.shown == SongColumnInfo::Shown::InPlaylists)
            continue;
        const int section = static_cast<int>(info.column);
        QAction *action = menu.addAction(qtTrId(info.title));
        action->setCheckable(true);
        action->setChecked(!isColumnHidden(section));
        connect(action, &QAction::toggled, this,
                [this, section](bool isShown) { setColumnHidden(section, !isShown); });
    }
    menu.addSeparator();
    menu.addAction(qtTrId("ColumnsRestore"), this, [this] {
        showColumnsAsAtFirst(*horizontalHeader());
        showIndexOfPlaylist();
    });
}

/// Elsewhere there is no index.
void SongTable::showIndexOfPlaylist()
{
    const bool isPlaylist = mController.songs().source().kind == SourceKind::Playlist;
    setColumnHidden(static_cast<int>(SongColumn::Index), !isPlaylist);
}

/// A second click turns the order round.
void SongTable::sortByColumn(int section)
{
    const auto column = static_cast<SongColumn>(section);
    const auto &sorting = mController.shownSongs().sorting();
    const bool isTurned =
        sorting && sorting->column == column && sorting->order == Qt::AscendingOrder;
    mController.shownSongs().sortBy({column, isTurned ? Qt::DescendingOrder : Qt::AscendingOrder});
}

void SongTable::showSorting()
{
    const auto &sorting = mController.shownSongs().sorting();
    horizontalHeader()->setSortIndicator(sorting ? static_cast<int>(sorting->column) : -1,
                                         sorting ? sorting->order : Qt::AscendingOrder);
}

void SongTable::changeSongs(int row, SongColumn column, const TagValues &values)
{
    const QString name = qtTrId("ChangeOfColumn").arg(qtTrId(infoOf(column).title));
    const TagChange change = TagChange::sameForAll(name, songsToChange(row), values);
    askToChange(questionOf(column, values), change.songs, qtTrId("ConfirmChangeProceed"), this,
                [this, change] { mController.change(change); });
}

/// All selected songs take the value that was entered for one of them.
SongList SongTable::songsToChange(int row) const
{
    const QList<int> rows = selectedRows();
    if (!std::binary_search(rows.begin(), rows.end(), row))
        return {mModel.songAtRow(row)};
    return songsInRows(rows);
}

SongList SongTable::songsInRows(const QList<int> &rows) const
{
    SongList songs;
    songs.reserve(static_cast<std::size_t>(rows.size()));
    for (const int row : rows)
        songs.push_back(mModel.songAtRow(row));
    return songs;
}

QList<int> SongTable::selectedRows() const
{
    QList<int> rows;
    const QItemSelection selection = selectionModel()->selection();
    for (const QItemSelectionRange &range : selection) {
        const qsizetype before = rows.size();
        rows.resize(before + range.height());
        std::iota(rows.begin() + before, rows.end(), range.top());
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

void SongTable::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    QTableView::selectionChanged(selected, deselected);
    tellSelection();
}

void SongTable::tellSelection()
{
    SongList songs = songsInRows(selectedRows());
    if (songs != mController.selectedSongs())
        mController.setSelectedSongs(std::move(songs));
}

void SongTable::selectSongs(const SongList &songs)
{
    QList<int> rows;
    for (const auto &song : songs)
        if (const int row = mModel.rowOf(*song); row >= 0)
            rows.append(row);
    std::sort(rows.begin(), rows.end());
    selectRows(rows);
}

/// A selection that is scattered all over a long list would make each painting slow: it is given
/// up.
void SongTable::selectRows(const QList<int> &rows)
{
    QItemSelection selection;
    for (qsizetype from = 0; from < rows.size() && selection.size() <= mostRanges;) {
        qsizetype to = from + 1;
        while (to < rows.size() && rows[to] == rows[to - 1] + 1)
            ++to;
        selection.append(QItemSelectionRange(mModel.index(rows[from], 0),
                                             mModel.index(rows[to - 1], songColumnCount - 1)));
        from = to;
    }
    if (selection.size() <= mostRanges)
        selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void SongTable::rememberSelection()
{
    const QModelIndex current = currentIndex();
    const QList<int> rows = mController.selectedSongs().empty() ? QList<int>() : selectedRows();
    mRemembered.clear();
    for (const int row : rows)
        mRemembered.append(mController.shownSongs().positionAt(row));
    mRememberedCurrent = current.isValid() ? mModel.songAtRow(current.row()) : nullptr;
    mRememberedColumn = current.column();
}

void SongTable::restoreSelection()
{
    const int row = mRememberedCurrent ? mModel.rowOf(*mRememberedCurrent) : -1;
    if (row >= 0) {
        const QModelIndex current = mModel.index(row, mRememberedColumn);
        selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
        scrollTo(current);
    }
    selectRows(mController.shownSongs().rowsOfPositions(std::exchange(mRemembered, {})));
    mRememberedCurrent.reset();
    if (!selectionModel()->hasSelection())
        tellSelection();
}

/// In the column that the table is sorted by, or the titles.
void SongTable::keyboardSearch(const QString &search)
{
    mTypingPause.start(QApplication::keyboardInputInterval());
    const bool isNew = mTyped.isEmpty();
    mTyped += search;
    const auto &sorting = mController.shownSongs().sorting();
    const bool isText = sorting && infoOf(sorting->column).kind == SongColumnInfo::Kind::Text;
    const SongColumn column = isText ? sorting->column : SongColumn::Title;
    const int rows = mModel.rowCount();
    const int first = std::max(currentIndex().row(), 0) + (isNew ? 1 : 0);
    for (int i = 0; i < rows; ++i) {
        const int row = (first + i) % rows;
        if (textInColumn(column, *mModel.songAtRow(row)).startsWith(mTyped, Qt::CaseInsensitive))
            return setCurrentIndex(mModel.index(row, static_cast<int>(column)));
    }
}

bool SongTable::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event)
{
    if (index.isValid() && (trigger & (EditKeyPressed | DoubleClicked)) != 0)
        mModel.songAtRow(index.row())->clearPassingProblem();
    if (trigger != EditKeyPressed || !index.isValid() || isEditable(index))
        return QTableView::edit(index, trigger, event);
    const QModelIndex cell = editableCellIn(index.row());
    if (!cell.isValid()) {
        tellWhyNotEditable(index);
        return false;
    }
    selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    return QTableView::edit(cell, trigger, event);
}

/// The title, or of the others the first one in sight.
QModelIndex SongTable::editableCellIn(int row) const
{
    const QHeaderView &header = *horizontalHeader();
    QList<int> sections{static_cast<int>(SongColumn::Title)};
    for (int place = 0; place < header.count(); ++place)
        sections << header.logicalIndex(place);
    for (const int section : std::as_const(sections))
        if (const QModelIndex cell = mModel.index(row, section);
            !header.isSectionHidden(section) && isEditable(cell))
            return cell;
    return {};
}

void SongTable::tellWhyNotEditable(const QModelIndex &index)
{
    const QRect cell = visualRect(index);
    QToolTip::showText(viewport()->mapToGlobal(cell.bottomLeft()),
                       activityText(*mModel.songAtRow(index.row())), viewport(), cell);
}

void SongTable::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (isReturn && isPlain && state() != EditingState
        && edit(currentIndex(), EditKeyPressed, event))
        return event->accept();
    QTableView::keyPressEvent(event);
}

void SongTable::contextMenuEvent(QContextMenuEvent *event)
{
    if (mModel.rowCount() > 0)
        Q_EMIT contextMenuWanted(event->globalPos());
}

void SongTable::changeEvent(QEvent *event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        setRowHeight();
}

void SongTable::showDropTarget(bool isOne)
{
    mIsDropTarget = isOne;
    viewport()->update();
}

void SongTable::paintEvent(QPaintEvent *event)
{
    QTableView::paintEvent(event);
    QPainter painter(viewport());
    if (mModel.rowCount() == 0)
        paintEmptyState(painter, viewport()->rect(), palette(), emptyState());
    if (mIsDropTarget)
        paintDropTarget(painter, viewport()->rect(), palette());
}

EmptyState SongTable::emptyState() const
{
    if (mController.songs().isLoading())
        return {};
    const QString &filter = mController.shownSongs().filter();
    if (!mController.songs().allSongs().empty())
        return {QStringLiteral("search"), qtTrId("EmptyNoMatch").arg(filter),
                qtTrId("EmptyNoMatchHint")};
    const bool isLoaded = !mController.songs().source().windowTitle.isEmpty();
    return {QStringLiteral("Menu-Directory"),
            isLoaded ? qtTrId("EmptySource") : qtTrId("EmptyNothingLoaded"),
            qtTrId("EmptyNothingLoadedHint")};
}
