#pragma once

#include "gathering/httpqueue.h"

#include <QAbstractTableModel>
#include <QTimer>

/// The fetch queue as a table: what is asked for, and how far it is.
class FetchQueueModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { URL, Status, ColumnCount };

    /// The queue must outlive the model.
    FetchQueueModel(HVHTTPQueue &queue, QObject *parent);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    struct Row {
        QString url;
        QString status;
    };

    void takeRows();

    HVHTTPQueue &mQueue;
    std::vector<Row> mRows; ///< as last shown: the queue itself changes many times a second
    QTimer mNextShow;
};
