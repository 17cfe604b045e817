#include "gui/reviewsongsmodel.h"

#include "app/review.h"
#include "gui/icons.h"
#include "gui/reviewtexts.h"

ReviewSongsModel::ReviewSongsModel(Review &review, QObject *parent)
    : QAbstractTableModel(parent)
    , mReview(review)
    , mRows(review.count())
{
    connect(&review, &Review::songAdded, this, &ReviewSongsModel::songAdded);
    connect(&review, &Review::songToBeRemoved, this,
            [this](int row) { beginRemoveRows({}, row, row); });
    connect(&review, &Review::songRemoved, this, &ReviewSongsModel::songRemoved);
    connect(&review, &Review::songChanged, this,
            [this](int row) { Q_EMIT dataChanged(index(row, 0), index(row, ColumnCount - 1)); });
}

void ReviewSongsModel::songAdded(int row)
{
    beginInsertRows({}, row, row);
    ++mRows;
    endInsertRows();
}

void ReviewSongsModel::songRemoved()
{
    --mRows;
    endRemoveRows();
}

int ReviewSongsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : mRows;
}

int ReviewSongsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ReviewSongsModel::data(const QModelIndex &index, int role) const
{
    const ReviewedSong &song = mReview.at(index.row());
    if (role == Qt::DecorationRole && index.column() == Song && !song.problem.isEmpty()
        && !song.isSettled())
        return icon(QStringLiteral("problem"));
    if (role == Qt::ToolTipRole)
        return song.problem.isEmpty() ? song.song->path() : song.problem;
    if (role != Qt::DisplayRole)
        return {};
    switch (index.column()) {
    case Song:
        return nameOf(song);
    case Changes:
        return summaryOf(song);
    case State:
        return stateOf(song);
    default:
        return {};
    }
}

QVariant ReviewSongsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (section) {
    case Song:
        return qtTrId("ReviewColumnSong");
    case Changes:
        return qtTrId("ReviewColumnChanges");
    default:
        return qtTrId("ReviewColumnState");
    }
}
