#include "gui/hintlabel.h"

#include <QEvent>

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

/// The calm colour of enabled texts would stand out among disabled ones.
void HintLabel::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::EnabledChange)
        setForegroundRole(isEnabled() ? QPalette::PlaceholderText : QPalette::WindowText);
}
