#include "FlatTitleStyle.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionButton>
#include <QStyleOptionTitleBar>

namespace {

/// The mark of one title button, drawn into a square of unit length.
QPainterPath markOf(QStyle::SubControl button)
{
    QPainterPath mark;
    switch (button) {
    case QStyle::SC_TitleBarMinButton:
        mark.moveTo(0, 1);
        mark.lineTo(1, 1);
        break;
    case QStyle::SC_TitleBarMaxButton:
        mark.addRect(0, 0, 1, 1);
        break;
    case QStyle::SC_TitleBarNormalButton:
        mark.addRect(0, 0.3, 0.7, 0.7);
        mark.moveTo(0.3, 0.3);
        mark.lineTo(0.3, 0);
        mark.lineTo(1, 0);
        mark.lineTo(1, 0.7);
        mark.lineTo(0.7, 0.7);
        break;
    default:
        mark.moveTo(0, 0);
        mark.lineTo(1, 1);
        mark.moveTo(0, 1);
        mark.lineTo(1, 0);
        break;
    }
    return mark;
}

/// Fusion draws the outlines in the window's colour, about a third darker: on a dark window that is nothing.
/// The window's colour of which they come out between the window's and its text's.
QColor windowForOutlines(const QPalette &palette)
{
    constexpr float textPart = 0.65f;
    constexpr int fusionDarkens = 150; // percent
    const QColor window = palette.color(QPalette::Window);
    const QColor text = palette.color(QPalette::WindowText);
    const auto mix = [](float a, float b) { return a + (b - a) * textPart; };
    return QColor::fromRgbF(mix(window.redF(), text.redF()), mix(window.greenF(), text.greenF()),
                            mix(window.blueF(), text.blueF()))
        .lighter(fusionDarkens);
}

} // namespace

FlatTitleStyle::FlatTitleStyle()
    : QProxyStyle(QStringLiteral("Fusion"))
{}

void FlatTitleStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                        QPainter *painter, const QWidget *widget) const
{
    const auto *titleBar = qstyleoption_cast<const QStyleOptionTitleBar *>(option);
    if (control == CC_TitleBar && titleBar)
        drawTitleBar(*titleBar, *painter, widget);
    else
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void FlatTitleStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                                   const QWidget *widget) const
{
    const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
    if (!button || (element != PE_IndicatorCheckBox && element != PE_IndicatorRadioButton))
        return QProxyStyle::drawPrimitive(element, option, painter, widget);
    QStyleOptionButton outlined(*button);
    outlined.palette.setColor(QPalette::Window, windowForOutlines(button->palette));
    QProxyStyle::drawPrimitive(element, &outlined, painter, widget);
}

int FlatTitleStyle::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    switch (metric) {
    case PM_ToolBarIconSize:
        return 16;
    case PM_ToolBarSeparatorExtent:
        return 5;
    case PM_ToolBarItemSpacing:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

void FlatTitleStyle::drawTitleBar(const QStyleOptionTitleBar &option, QPainter &painter,
                                  const QWidget *widget) const
{
    const bool active = option.titleBarState & State_Active;
    const QPalette &palette = option.palette;
    painter.save();
    painter.fillRect(option.rect, palette.color(active ? QPalette::Highlight : QPalette::Button));
    painter.setPen(palette.color(active ? QPalette::HighlightedText : QPalette::ButtonText));

    const QRect icon = subControlRect(CC_TitleBar, &option, SC_TitleBarSysMenu, widget);
    if (option.titleBarFlags & Qt::WindowSystemMenuHint)
        option.icon.paint(&painter, icon);
    const QRect label = subControlRect(CC_TitleBar, &option, SC_TitleBarLabel, widget).adjusted(4, 0, -4, 0);
    // Of a path the name at its end tells most.
    const QString text = painter.fontMetrics().elidedText(option.text, Qt::ElideLeft, label.width());
    painter.drawText(label, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, text);
    drawTitleButtons(option, painter, widget);
    painter.restore();
}

void FlatTitleStyle::drawTitleButtons(const QStyleOptionTitleBar &option, QPainter &painter,
                                      const QWidget *widget) const
{
    constexpr double markPart = 0.42; // of the button's height
    painter.setRenderHint(QPainter::Antialiasing);
    for (SubControl button :
         {SC_TitleBarMinButton, SC_TitleBarMaxButton, SC_TitleBarNormalButton, SC_TitleBarCloseButton}) {
        const QRectF rect = subControlRect(CC_TitleBar, &option, button, widget);
        if (rect.isEmpty() || !(option.subControls & button))
            continue;
        QColor ground = painter.pen().color();
        if (option.activeSubControls & button) {
            ground.setAlphaF(option.state & State_Sunken ? 0.35f : 0.18f);
            painter.fillRect(rect, ground);
        }
        const double side = std::round(rect.height() * markPart);
        QTransform place = QTransform::fromTranslate(std::floor(rect.center().x() - side / 2) + 0.5,
                                                     std::floor(rect.center().y() - side / 2) + 0.5);
        painter.drawPath(place.scale(side, side).map(markOf(button)));
    }
}
