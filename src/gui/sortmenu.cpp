#include "gui/sortmenu.h"

#include "gui/maincontroller.h"

#include <QActionGroup>

SortMenu::SortMenu(MainController &controller, QWidget *parent)
    : QMenu(qtTrId("MenuSortBy"), parent)
    , mController(controller)
{
    setObjectName(QStringLiteral("sortMenu"));
    addColumns();
    addSeparator();
    addOrders();
    connect(this, &QMenu::aboutToShow, this, &SortMenu::showSorting);
}

void SortMenu::addColumns()
{
    auto *group = new QActionGroup(this);
    for (const SongColumnInfo &info : songColumns()) {
        QAction *choice = addChoice(qtTrId(info.title), *group);
        mColumns.at(static_cast<std::size_t>(info.column)) = choice;
        connect(choice, &QAction::triggered, this, [this, column = info.column] {
            mController.shownSongs().sortBy({column, Qt::AscendingOrder});
        });
    }
}

void SortMenu::addOrders()
{
    auto *group = new QActionGroup(this);
    mAscending = addChoice(qtTrId("SortAscending"), *group);
    mDescending = addChoice(qtTrId("SortDescending"), *group);
    const auto turn = [this](Qt::SortOrder order) {
        VisibleSongs &shown = mController.shownSongs();
        if (shown.sorting())
            shown.sortBy({shown.sorting()->column, order});
    };
    connect(mAscending, &QAction::triggered, this, [turn] { turn(Qt::AscendingOrder); });
    connect(mDescending, &QAction::triggered, this, [turn] { turn(Qt::DescendingOrder); });
}

QAction *SortMenu::addChoice(const QString &text, QActionGroup &among)
{
    QAction *choice = addAction(text);
    choice->setCheckable(true);
    among.addAction(choice);
    // Where nothing is sorted, none is chosen.
    among.setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    return choice;
}

void SortMenu::showSorting()
{
    const auto &sorting = mController.shownSongs().sorting();
    for (const SongColumnInfo &info : songColumns())
        mColumns.at(static_cast<std::size_t>(info.column))
            ->setChecked(sorting && sorting->column == info.column);
    mColumns.at(static_cast<std::size_t>(SongColumn::Index))
        ->setVisible(mController.songs().source().kind == SourceKind::Playlist);
    mAscending->setChecked(sorting && sorting->order == Qt::AscendingOrder);
    mDescending->setChecked(sorting && sorting->order == Qt::DescendingOrder);
    mAscending->setEnabled(sorting.has_value());
    mDescending->setEnabled(sorting.has_value());
}
