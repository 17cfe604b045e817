#pragma once

#include "app/reviewedsong.h"

#include <QAbstractTableModel>

class Review;
class Thumbnails;

/// The fields of one song under review: what the file held, what was found and where. Fields that
/// change have a check box.
class ReviewFieldsModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Field, Old, New, Source, Reason, ColumnCount };

    /// Both must outlive the model.
    ReviewFieldsModel(Review &review, Thumbnails &thumbnails, QObject *parent = nullptr);

    /// -1: none.
    void setSong(int row);
    /// The same song has other values.
    void songChanged();
    [[nodiscard]] static int rowOfArtwork();

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    [[nodiscard]] QVariant textAt(const ReviewedSong &song, Asset asset, int column) const;
    [[nodiscard]] QString pictureText(const SongValues &values) const;

    Review &mReview;
    Thumbnails &mThumbnails;
    int mSong = -1;
};
