#pragma once

#include "gui/thumbnails.h"
#include "tags/id3image.h"

#include <QListWidget>

/// Several pictures side by side, small, to choose one of them.
class PictureStrip : public QListWidget {
    Q_OBJECT

public:
    /// The queue must outlive the strip.
    PictureStrip(HVHTTPQueue &queue, QWidget *parent);

    /// Of these `chosen` is; -1: none.
    void setPictures(const QList<ID3Image> &pictures, qsizetype chosen);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    /// By the user.
    void chosen(int index);

private:
    void addPictures();
    void showThumbnails();

    Thumbnails mThumbnails;
    QList<ID3Image> mPictures;
};
