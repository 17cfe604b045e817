#pragma once

#include <QImage>
#include <QMimeData>
#include <QWidget>

/// A well with a picture scaled into it, or a line that says what can be done here. Pictures can be
/// dropped on it.
class PictureFrame : public QWidget {
    Q_OBJECT

public:
    explicit PictureFrame(QWidget *parent);

    void showPicture(const QImage &picture);
    /// Instead of a picture.
    void showHint(const QString &hint);
    /// Whether pictures can be dropped now.
    void setTakesDrops(bool takesDrops) { setAcceptDrops(takesDrops); }

    [[nodiscard]] const QImage &picture() const { return mPicture; }
    [[nodiscard]] const QString &hint() const { return mHint; }

    /// Square, where there is room.
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override { return width; }
    [[nodiscard]] QSize sizeHint() const override { return {220, 220}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {120, 120}; }

Q_SIGNALS:
    void dropped(const QMimeData *data);

protected:
    void paintEvent(QPaintEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void setHighlighted(bool isHighlighted);
    void drawPicture(QPainter &painter, const QRect &within);
    void drawHint(QPainter &painter, const QRect &within) const;

    QImage mPicture;
    QImage mScaled; ///< as it was painted last
    QString mHint;
    bool mIsHighlighted = false; ///< while something is dragged over it
};
