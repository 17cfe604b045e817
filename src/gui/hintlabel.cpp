#include "gui/hintlabel.h"

#include <QApplication>
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
    soften();
}

/// The placeholders' colour is made for fields and too weak on pages of tabs in dark palettes.
void HintLabel::soften()
{
    constexpr float opacity = 0.7F;
    QColor text = QApplication::palette(this).color(QPalette::Active, QPalette::WindowText);
    text.setAlphaF(opacity);
    if (palette().color(QPalette::Active, QPalette::WindowText) == text)
        return;
    QPalette calm;
    calm.setColor(QPalette::Active, QPalette::WindowText, text);
    calm.setColor(QPalette::Inactive, QPalette::WindowText, text);
    setPalette(calm);
}

void HintLabel::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        soften();
}
