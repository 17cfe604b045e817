#include "gui/clearindicators.h"

#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

namespace {

/// Fusion outlines them in a darker shade of the window, which nobody sees on a dark one.
class ClearIndicators : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        const bool isRadio = element == PE_IndicatorRadioButton;
        if ((isRadio || element == PE_IndicatorCheckBox)
            && option->palette.color(QPalette::Window).lightness() < darkest)
            outline(*option, isRadio, *painter);
    }

    /// Those that Qt brings along are black.
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returned) const override
    {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons
            ? 0
            : QProxyStyle::styleHint(hint, option, widget, returned);
    }

private:
    static constexpr int darkest = 128;

    static void outline(const QStyleOption &option, bool isRadio, QPainter &painter)
    {
        constexpr float strength = 0.55F;
        const bool isEnabled = option.state.testFlag(State_Enabled);
        QColor color = option.palette.color(QPalette::WindowText);
        color.setAlphaF(isEnabled ? strength : strength / 2);
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing, isRadio);
        painter.setPen(color);
        painter.setBrush(Qt::NoBrush);
        const QRectF frame = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
        if (isRadio)
            painter.drawEllipse(frame);
        else
            painter.drawRect(frame);
        painter.restore();
    }
};

/// Also below what a desktop's settings put on top of it.
bool isFusion(const QStyle *style)
{
    while (const auto *proxy = qobject_cast<const QProxyStyle *>(style))
        style = proxy->baseStyle();
    return style->inherits("QFusionStyle");
}

} // namespace

void useClearIndicators()
{
    if (isFusion(QApplication::style()))
        QApplication::setStyle(new ClearIndicators(QApplication::style()->name()));
}
