#include "gui/logmodel.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace {
/// Faster than anyone reads.
constexpr std::chrono::milliseconds batchInterval{40};
constexpr std::size_t linesOfABatch = 5000;
} // namespace

LogModel::LogModel(QObject *parent)
    : QAbstractListModel(parent)
{
    mNextBatch.setSingleShot(true);
    mNextBatch.setInterval(batchInterval);
    connect(&mNextBatch, &QTimer::timeout, this, &LogModel::takeWaiting);
}

void LogModel::add(const QString &line, LogColor color)
{
    mWaiting.push_back({line, color});
    if (!mNextBatch.isActive())
        mNextBatch.start();
}

void LogModel::clear()
{
    beginResetModel();
    mLines.clear();
    mWaiting.clear();
    endResetModel();
}

void LogModel::takeWaiting()
{
    const auto count = static_cast<std::ptrdiff_t>(std::min(mWaiting.size(), linesOfABatch));
    if (count == 0)
        return;
    beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(count) - 1);
    std::move(mWaiting.begin(), mWaiting.begin() + count, std::back_inserter(mLines));
    mWaiting.erase(mWaiting.begin(), mWaiting.begin() + count);
    endInsertRows();
    dropOldest();
    if (!mWaiting.empty())
        mNextBatch.start();
}

/// Many at a time, since a view does the same work for one as for all of them.
void LogModel::dropOldest()
{
    const int tooMany = rowCount() - mostLines;
    if (tooMany < mostLines / 10)
        return;
    beginRemoveRows({}, 0, tooMany - 1);
    mLines.erase(mLines.begin(), mLines.begin() + tooMany);
    endRemoveRows();
}

int LogModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(mLines.size());
}

QVariant LogModel::data(const QModelIndex &index, int role) const
{
    const Line &line = mLines[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return line.text;
    return role == colorRole ? QVariant(static_cast<int>(line.color)) : QVariant();
}
