#include "gui/hintlabel.h"

#include <QAbstractButton>
#include <QEvent>
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

/// The calm colour of enabled texts would stand out among disabled ones.
void HintLabel::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::EnabledChange)
        setForegroundRole(isEnabled() ? QPalette::PlaceholderText : QPalette::WindowText);
}
