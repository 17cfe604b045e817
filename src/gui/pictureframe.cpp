#include "gui/pictureframe.h"

#include "gathering/picturereader.h"
#include "gui/picturesource.h"

#include <QDragEnterEvent>
#include <QPainter>
#include <QStyleOptionFrame>

namespace {
constexpr int aroundHint = 12; // pixels
constexpr double leastPoints = 9;
} // namespace

PictureFrame::PictureFrame(QWidget *parent)
    : QWidget(parent)
{
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setFocusPolicy(Qt::StrongFocus);
}

void PictureFrame::showPicture(const QImage &picture)
{
    mPicture = picture;
    mScaled = QImage();
    mHint.clear();
    update();
}

void PictureFrame::showHint(const QString &hint)
{
    showPicture({});
    mHint = hint;
}

void PictureFrame::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QStyleOptionFrame option;
    option.initFrom(this);
    option.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, this);
    option.state |= QStyle::State_Sunken;
    painter.fillRect(rect(), palette().base());
    const QRect within = style()->subElementRect(QStyle::SE_LineEditContents, &option, this);
    if (!mPicture.isNull())
        drawPicture(painter, within);
    else
        drawHint(painter, within);
    style()->drawPrimitive(QStyle::PE_FrameLineEdit, &option, &painter, this);
    if (mIsHighlighted || hasFocus()) {
        painter.setPen(QPen(palette().highlight(), 2));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
}

/// Small pictures are not enlarged: they would look like what they are not.
void PictureFrame::drawPicture(QPainter &painter, const QRect &within)
{
    const QSize room = within.size() * devicePixelRatioF();
    const QSize size = mPicture.width() > room.width() || mPicture.height() > room.height()
        ? mPicture.size().scaled(room, Qt::KeepAspectRatio)
        : mPicture.size();
    if (mScaled.size() != size)
        mScaled = mPicture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    mScaled.setDevicePixelRatio(devicePixelRatioF());
    QRect place(QPoint(), mScaled.deviceIndependentSize().toSize());
    place.moveCenter(within.center());
    painter.drawImage(place, mScaled);
}

/// Large letters are made smaller as far as that is needed.
void PictureFrame::drawHint(QPainter &painter, const QRect &within) const
{
    constexpr int flags = Qt::AlignCenter | Qt::TextWordWrap;
    const QRect place = within.adjusted(aroundHint, aroundHint, -aroundHint, -aroundHint);
    QFont smaller = font();
    while (smaller.pointSizeF() > leastPoints
           && !place.contains(QFontMetrics(smaller).boundingRect(place, flags, mHint)))
        smaller.setPointSizeF(smaller.pointSizeF() - 1);
    painter.setFont(smaller);
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(place, flags, mHint);
}

void PictureFrame::setHighlighted(bool isHighlighted)
{
    mIsHighlighted = isHighlighted;
    update();
}

void PictureFrame::dragEnterEvent(QDragEnterEvent *event)
{
    if (!mayHoldPicture(*event->mimeData()))
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    setHighlighted(true);
}

void PictureFrame::dragLeaveEvent(QDragLeaveEvent *)
{
    setHighlighted(false);
}

void PictureFrame::dropEvent(QDropEvent *event)
{
    setHighlighted(false);
    event->setDropAction(Qt::CopyAction);
    event->accept();
    Q_EMIT dropped(event->mimeData());
}
