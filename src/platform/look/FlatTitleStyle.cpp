#include "FlatTitleStyle.h"

#include "Colors.h"
#include "ShownText.h"
#include "ThemeIconEngine.h"

#include <QAbstractItemView>
#include <QGroupBox>
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

/// Between the window's colour and its text's.
QColor outline(const QPalette &palette, float textPart)
{
    return mixed(palette.color(QPalette::Window), palette.color(QPalette::WindowText), textPart);
}

/// Fusion draws the outlines in the window's colour, about a third darker, which a dark window hides. With
/// this window's colour they are between the real one and the text's.
QColor windowForOutlines(const QPalette &palette, float textPart)
{
    constexpr int fusionDarkens = 150; // percent
    return outline(palette, textPart).lighter(fusionDarkens);
}

/// The selected entry has a tint of the selection's colour, on which the window's icons and text are as
/// readable as on the menu itself.
QPalette menuPalette(QPalette palette)
{
    constexpr float highlightPart = 0.35f;
    palette.setColor(QPalette::Highlight,
                     mixed(palette.color(QPalette::Base), palette.color(QPalette::Highlight), highlightPart));
    palette.setColor(QPalette::HighlightedText, palette.color(QPalette::Text));
    return palette;
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
    if (element == PE_FrameGroupBox)
        return drawGroupFrame(*option, *painter, widget);
    if (element == PE_Frame && (option->state & State_HasFocus) &&
        qobject_cast<const QAbstractItemView *>(widget))
        return drawFocusedFrame(*option, *painter);
    const auto drawOutlined = [&](auto outlined, float textPart) {
        outlined.palette.setColor(QPalette::Window, windowForOutlines(option->palette, textPart));
        QProxyStyle::drawPrimitive(element, &outlined, painter, widget);
    };
    const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
    if (button && (element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton))
        drawOutlined(QStyleOptionButton(*button), 0.65f);
    else if (element == PE_FrameLineEdit)
        drawOutlined(QStyleOption(*option), 0.45f);
    else
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void FlatTitleStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                                 const QWidget *widget) const
{
    const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    if (!item || (element != CE_MenuItem && element != CE_MenuBarItem))
        return QProxyStyle::drawControl(element, option, painter, widget);
    QStyleOptionMenuItem tinted(*item);
    tinted.palette = menuPalette(item->palette);
    QProxyStyle::drawControl(element, &tinted, painter, widget);
}

/// Fusion mixes grey by lightness, so that the light icons of dark windows look as if they were enabled.
QPixmap FlatTitleStyle::generatedIconPixmap(QIcon::Mode mode, const QPixmap &pixmap,
                                            const QStyleOption *option) const
{
    if (mode != QIcon::Disabled)
        return QProxyStyle::generatedIconPixmap(mode, pixmap, option);
    QPixmap faint(pixmap.size());
    faint.setDevicePixelRatio(pixmap.devicePixelRatio());
    faint.fill(Qt::transparent);
    QPainter painter(&faint);
    painter.setOpacity(0.4);
    painter.drawPixmap(0, 0, pixmap);
    return faint;
}

/// The icons of the overflow buttons of toolbars and menu bars; Qt's are black in dark windows, too.
QIcon FlatTitleStyle::standardIcon(StandardPixmap picture, const QStyleOption *option,
                                   const QWidget *widget) const
{
    const QIcon icon = QProxyStyle::standardIcon(picture, option, widget);
    const bool isArrow =
        picture == SP_ToolBarHorizontalExtensionButton || picture == SP_ToolBarVerticalExtensionButton;
    return isArrow ? QIcon(new ThemeIconEngine(icon)) : icon;
}

int FlatTitleStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                              QStyleHintReturn *returned) const
{
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0; // as the push buttons of the windows
    return QProxyStyle::styleHint(hint, option, widget, returned);
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

void FlatTitleStyle::drawGroupFrame(const QStyleOption &option, QPainter &painter,
                                    const QWidget *widget) const
{
    constexpr float textPart = 0.3f;
    constexpr double radius = 2.5;
    constexpr int gap = 3; // pixels between the title, which is above the frame, and the frame
    const auto *box = qobject_cast<const QGroupBox *>(widget);
    const bool hasTitle = box && !box->title().isEmpty();
    const int title =
        std::max(pixelMetric(PM_ExclusiveIndicatorHeight, &option, widget), option.fontMetrics.height());
    const QRectF frame = QRectF(option.rect).adjusted(0.5, hasTitle ? title + gap + 0.5 : 0.5, -0.5, -0.5);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(outline(option.palette, textPart));
    painter.drawRoundedRect(frame, radius, radius);
    painter.restore();
}

void FlatTitleStyle::drawFocusedFrame(const QStyleOption &option, QPainter &painter) const
{
    painter.save();
    painter.setPen(option.palette.color(QPalette::Highlight));
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter.restore();
}

void FlatTitleStyle::drawTitleBar(const QStyleOptionTitleBar &option, QPainter &painter,
                                  const QWidget *widget) const
{
    const bool active = option.titleBarState & State_Active;
    const QPalette &palette = option.palette;
    painter.save();
    painter.fillRect(option.rect, palette.color(active ? QPalette::Highlight : QPalette::Button));
    painter.setPen(palette.color(active ? QPalette::HighlightedText : QPalette::ButtonText));

    if (option.titleBarFlags & Qt::WindowSystemMenuHint)
        drawTitleIcon(option, painter, widget);
    const QRect label = subControlRect(CC_TitleBar, &option, SC_TitleBarLabel, widget).adjusted(4, 0, -4, 0);
    // The option's text is elided at its end already; the name there matters most in a path.
    const QString title = ShownText::line(widget ? widget->windowTitle() : option.text);
    const QString text = painter.fontMetrics().elidedText(title, Qt::ElideLeft, label.width());
    painter.drawText(label, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, text);
    drawTitleButtons(option, painter, widget);
    painter.restore();
}

/// In a size that themes draw it for: in others it would be blurred, or the picture of a larger size.
void FlatTitleStyle::drawTitleIcon(const QStyleOptionTitleBar &option, QPainter &painter,
                                   const QWidget *widget) const
{
    constexpr int size = 16; // pixels
    QRect icon(0, 0, size, size);
    icon.moveCenter(subControlRect(CC_TitleBar, &option, SC_TitleBarSysMenu, widget).center());
    option.icon.paint(&painter, icon);
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
