#include "gui/picturestrip.h"

#include "app/artworkchange.h"
#include "app/artworkofsongs.h"

#include <QScrollBar>
#include <QSignalBlocker>

namespace {
constexpr int side = 40; // pixels
constexpr int around = 3; // pixels
} // namespace

PictureStrip::PictureStrip(HVHTTPQueue &queue, QWidget *parent)
    : QListWidget(parent)
    , mThumbnails(queue, qRound(side * devicePixelRatioF()))
{
    setObjectName(QStringLiteral("pictureStrip"));
    setAccessibleName(qtTrId("ArtworkPictures"));
    setFlow(LeftToRight);
    setWrapping(false);
    setFrameShape(NoFrame);
    setIconSize({side, side});
    setUniformItemSizes(true);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    viewport()->setBackgroundRole(QPalette::Window);
    connect(this, &QListWidget::currentRowChanged, this, &PictureStrip::chosen);
    connect(&mThumbnails, &Thumbnails::changed, this, &PictureStrip::showThumbnails);
}

void PictureStrip::setPictures(const QList<ID3Image> &pictures, qsizetype chosen)
{
    const QSignalBlocker blocker(this);
    if (!haveSameData(pictures, mPictures) || count() != pictures.size()) {
        mThumbnails.clear();
        mPictures = pictures;
        addPictures();
    }
    setCurrentRow(static_cast<int>(chosen),
                  chosen < 0 ? QItemSelectionModel::Clear : QItemSelectionModel::ClearAndSelect);
}

void PictureStrip::addPictures()
{
    clear();
    for (const ID3Image &picture : std::as_const(mPictures)) {
        auto *item = new QListWidgetItem(this);
        item->setSizeHint({side + 2 * around, side + 2 * around});
        const QString text = QStringLiteral("%1, %2").arg(
            qtTrId("ArtworkPosition")
                .arg(locale().toString(count()), locale().toString(mPictures.size())),
            qtTrId(textIDOfPictureType(picture.pictureType)));
        item->setData(Qt::AccessibleTextRole, text);
        item->setToolTip(text);
    }
    showThumbnails();
}

/// A chosen one is not coloured.
void PictureStrip::showThumbnails()
{
    for (int row = 0; row < count(); ++row) {
        QPixmap pixmap = QPixmap::fromImage(mThumbnails.of(mPictures[row].data).image);
        pixmap.setDevicePixelRatio(devicePixelRatioF());
        QIcon icon(pixmap);
        icon.addPixmap(pixmap, QIcon::Selected);
        item(row)->setIcon(icon);
    }
}

QSize PictureStrip::sizeHint() const
{
    const int height = side + 2 * around + horizontalScrollBar()->sizeHint().height();
    return {3 * (side + 2 * around), height};
}
