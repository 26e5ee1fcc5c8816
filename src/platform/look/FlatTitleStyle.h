#pragma once

#include <QProxyStyle>

class QStyleOptionTitleBar;

/// Fusion with flat title bars on the child windows, in the palette's colours, toolbars so compact that the
/// frame's fits into its first width, and check boxes and radio buttons that are seen on dark windows too.
class FlatTitleStyle : public QProxyStyle
{
public:
    FlatTitleStyle();

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override;

private:
    void drawTitleBar(const QStyleOptionTitleBar &option, QPainter &painter, const QWidget *widget) const;
    void drawTitleButtons(const QStyleOptionTitleBar &option, QPainter &painter, const QWidget *widget) const;
};
