#include "gui/fetchqueuemodel.h"

#include <chrono>

using namespace std::chrono_literals;

namespace {
constexpr auto betweenShows = 200ms;
/// More are of no use to anyone who looks.
constexpr int mostRows = 500;
} // namespace

FetchQueueModel::FetchQueueModel(HVHTTPQueue &queue, QObject *parent)
    : QAbstractTableModel(parent)
    , mQueue(queue)
{
    mNextShow.setSingleShot(true);
    mNextShow.setInterval(betweenShows);
    connect(&mNextShow, &QTimer::timeout, this, &FetchQueueModel::takeRows);
    connect(&queue, &HVHTTPQueue::rowsChanged, this, [this] {
        if (!mNextShow.isActive())
            mNextShow.start();
    });
    takeRows();
}

void FetchQueueModel::takeRows()
{
    std::vector<Row> rows;
    const int count = std::min(mQueue.numberOfRows(), mostRows);
    rows.reserve(static_cast<std::size_t>(count));
    for (int row = 0; row < count; ++row)
        rows.push_back({mQueue.urlOfRow(row).toDisplayString(), mQueue.statusOfRow(row)});
    if (rows.size() != mRows.size()) {
        beginResetModel();
        mRows = std::move(rows);
        endResetModel();
    } else if (!rows.empty()) {
        mRows = std::move(rows);
        Q_EMIT dataChanged(index(0, 0), index(count - 1, ColumnCount - 1));
    }
}

int FetchQueueModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(mRows.size());
}

int FetchQueueModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant FetchQueueModel::data(const QModelIndex &index, int role) const
{
    const Row &row = mRows.at(static_cast<std::size_t>(index.row()));
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return index.column() == URL ? row.url : row.status;
    return {};
}

QVariant FetchQueueModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role == Qt::DisplayRole && orientation == Qt::Horizontal)
        return section == URL ? qtTrId("ActivityURL") : qtTrId("ActivityStatus");
    return {};
}
