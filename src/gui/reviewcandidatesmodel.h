#pragma once

#include <QAbstractTableModel>

class Review;
class Thumbnails;
struct ReviewedSong;

/// The albums that were looked at for one song under review, and what became of each.
class ReviewCandidatesModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Album, Artist, Year, Tracks, Source, Fate, ColumnCount };

    /// Both must outlive the model.
    ReviewCandidatesModel(Review &review, Thumbnails &thumbnails, QObject *parent = nullptr);

    /// -1: none.
    void setSong(int row);
    void songChanged();

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    [[nodiscard]] QString textAt(const ReviewedSong &song, int candidate, int column) const;

    Review &mReview;
    Thumbnails &mThumbnails;
    int mSong = -1;
};
