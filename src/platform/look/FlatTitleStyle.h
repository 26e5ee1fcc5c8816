#pragma once

#include <QProxyStyle>

class QStyleOptionTitleBar;

/// Fusion with flat title bars on the child windows that show the end of a long title, menus and frames that
/// suit light and dark windows, lists that show which one has the focus, toolbars so compact that the frame's
/// fits into its first width, and push buttons without icons.
class FlatTitleStyle : public QProxyStyle
{
public:
    FlatTitleStyle();

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    QPixmap generatedIconPixmap(QIcon::Mode mode, const QPixmap &pixmap,
                                const QStyleOption *option) const override;
    QIcon standardIcon(StandardPixmap picture, const QStyleOption *option,
                       const QWidget *widget) const override;
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returned) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override;

private:
    void drawGroupFrame(const QStyleOption &option, QPainter &painter, const QWidget *widget) const;
    void drawFocusedFrame(const QStyleOption &option, QPainter &painter) const;
    void drawTitleBar(const QStyleOptionTitleBar &option, QPainter &painter, const QWidget *widget) const;
    void drawTitleIcon(const QStyleOptionTitleBar &option, QPainter &painter, const QWidget *widget) const;
    void drawTitleButtons(const QStyleOptionTitleBar &option, QPainter &painter, const QWidget *widget) const;
};
