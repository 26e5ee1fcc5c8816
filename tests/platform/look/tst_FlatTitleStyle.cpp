#include "Contrast.h"
#include "FlatTitleStyle.h"
#include "Palettes.h"

#include <QImage>
#include <QPainter>
#include <QStyleOptionButton>
#include <QStyleOptionTitleBar>
#include <gtest/gtest.h>

namespace {

constexpr QSize barSize(200, 24);

QImage paint(QStyle::State state, QStyle::SubControls active = QStyle::SC_None)
{
    const FlatTitleStyle style;
    QStyleOptionTitleBar bar;
    bar.rect = QRect(QPoint(), barSize);
    bar.palette = Palettes::light();
    bar.subControls = QStyle::SC_All;
    bar.titleBarFlags = Qt::SubWindow | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                        Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint;
    bar.titleBarState = int(state);
    bar.activeSubControls = active;
    bar.text = QStringLiteral("Document 1");
    QImage image(barSize, QImage::Format_RGB32);
    QPainter painter(&image);
    style.drawComplexControl(QStyle::CC_TitleBar, &bar, &painter, nullptr);
    return image;
}

/// The most that anything in an unchecked box or button stands out from its window.
double contrastOf(QStyle::PrimitiveElement element, const QPalette &palette, double pixelRatio)
{
    const FlatTitleStyle style;
    QStyleOptionButton option;
    option.rect = QRect(3, 3, style.pixelMetric(QStyle::PM_IndicatorWidth, nullptr, nullptr),
                        style.pixelMetric(QStyle::PM_IndicatorHeight, nullptr, nullptr));
    option.palette = palette;
    option.state = QStyle::State_Enabled | QStyle::State_Off;
    QImage image(QSize(20, 20) * pixelRatio, QImage::Format_RGB32);
    image.setDevicePixelRatio(pixelRatio);
    const QColor window = palette.color(QPalette::Window);
    image.fill(window);
    {
        QPainter painter(&image);
        style.drawPrimitive(element, &option, &painter, nullptr);
    }
    double most = 1;
    for (int x = 0; x < image.width() / 2; ++x)
        most = std::max(most, contrast(image.pixelColor(x, image.height() / 2), window));
    return most;
}

} // namespace

TEST(FlatTitleStyle, TheBarIsFlatInThePalettesColours)
{
    const QImage active = paint(QStyle::State_Active);
    const QColor ground = Palettes::light().color(QPalette::Highlight);
    EXPECT_EQ(active.pixelColor(110, 1), ground);
    EXPECT_EQ(active.pixelColor(110, barSize.height() - 2), ground);
    EXPECT_EQ(paint(QStyle::State_None).pixelColor(110, 1), Palettes::light().color(QPalette::Button));
}

TEST(FlatTitleStyle, AButtonUnderTheMouseStandsOut)
{
    EXPECT_NE(paint(QStyle::State_Active), paint(QStyle::State_Active, QStyle::SC_TitleBarCloseButton));
}

TEST(FlatTitleStyle, UncheckedBoxesAndButtonsStandOutFromTheWindow)
{
    constexpr double visible = 3.0;
    for (const QPalette &palette : {Palettes::light(), Palettes::dark()}) {
        for (const double pixelRatio : {1, 2}) {
            EXPECT_GT(contrastOf(QStyle::PE_IndicatorRadioButton, palette, pixelRatio), visible);
            EXPECT_GT(contrastOf(QStyle::PE_IndicatorCheckBox, palette, pixelRatio), visible);
        }
    }
}
