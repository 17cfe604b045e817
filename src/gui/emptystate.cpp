#include "gui/emptystate.h"

#include "gui/icons.h"

#include <QPainter>
#include <QPalette>

namespace {
constexpr int iconSize = 48; // pixels
constexpr int gap = 12; // pixels, between groups
constexpr int smallGap = 6; // pixels, inside of one
constexpr double titleScale = 1.25; // of the font's size
constexpr double quiet = 0.5; // opacity of the icon
constexpr int frameWidth = 2; // pixels
constexpr double frameRadius = 6; // pixels
} // namespace

void paintEmptyState(QPainter &painter, const QRect &rect, const QPalette &palette,
                     const EmptyState &state)
{
    if (state.title.isEmpty())
        return;
    const QFont font = painter.font();
    QFont titleFont = font;
    titleFont.setPointSizeF(font.pointSizeF() * titleScale);
    const int titleHeight = QFontMetrics(titleFont).height();
    const int hintHeight = QFontMetrics(font).height();
    int top = rect.center().y() - (iconSize + gap + titleHeight + smallGap + hintHeight) / 2;
    const QRect iconRect(rect.center().x() - iconSize / 2, top, iconSize, iconSize);
    painter.setOpacity(quiet);
    icon(state.icon).paint(&painter, iconRect);
    painter.setOpacity(1);
    top += iconSize + gap;
    const auto line = [&](const QFont &lineFont, const QString &text, int height) {
        painter.setFont(lineFont);
        const QRect place(rect.left() + gap, top, rect.width() - 2 * gap, height);
        painter.drawText(place, Qt::AlignCenter | Qt::TextSingleLine,
                         QFontMetrics(lineFont).elidedText(text, Qt::ElideRight, place.width()));
        top += height + smallGap;
    };
    painter.setPen(palette.color(QPalette::Text));
    line(titleFont, state.title, titleHeight);
    painter.setPen(palette.color(QPalette::PlaceholderText));
    line(font, state.hint, hintHeight);
}

void paintDropTarget(QPainter &painter, const QRect &rect, const QPalette &palette)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette.color(QPalette::Highlight), frameWidth));
    painter.drawRoundedRect(rect.adjusted(frameWidth, frameWidth, -frameWidth, -frameWidth),
                            frameRadius, frameRadius);
}
