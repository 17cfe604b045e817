#pragma once

#include <QAbstractTableModel>

class Review;

/// The songs under review, one a row.
class ReviewSongsModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Song, Changes, State, ColumnCount };

    /// The review must outlive the model.
    explicit ReviewSongsModel(Review &review, QObject *parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    void songAdded(int row);
    void songRemoved();

    Review &mReview;
    int mRows; ///< that views know of
};
