#pragma once

#include "app/userlog.h"

#include <QAbstractListModel>
#include <QTimer>

#include <deque>

/// The lines of the log. They come in batches, so that a flood of them is no work for the view, and
/// the oldest go.
class LogModel : public QAbstractListModel {
    Q_OBJECT

public:
    /// When there are a tenth more than these, the oldest go.
    static constexpr int mostLines = 100'000;

    /// What a line is about, as a number.
    static constexpr int colorRole = Qt::UserRole;

    explicit LogModel(QObject *parent = nullptr);

    void add(const QString &line, LogColor color);
    void clear();

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;

private:
    struct Line {
        QString text;
        LogColor color;
    };

    void takeWaiting();
    void dropOldest();

    std::deque<Line> mLines;
    std::deque<Line> mWaiting;
    QTimer mNextBatch;
};
