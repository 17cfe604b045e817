#include "gui/hintlabel.h"

#include <QAbstractButton>
#include <QStyle>

HintLabel::HintLabel(const QString &text, QWidget *parent)
    : QLabel(text, parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    QFont smaller = font();
    if (smaller.pointSizeF() > 0)
        smaller.setPointSizeF(smaller.pointSizeF() * 0.9);
    setFont(smaller);
    setForegroundRole(QPalette::PlaceholderText);
}

void HintLabel::indentBelow(const QAbstractButton &button)
{
    const QStyle *style = button.style();
    setContentsMargins(style->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth)
                           + style->pixelMetric(QStyle::PM_RadioButtonLabelSpacing),
                       0, 0, 0);
}
