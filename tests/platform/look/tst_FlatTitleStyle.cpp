#include "FlatTitleStyle.h"
#include "Palettes.h"

#include <QImage>
#include <QPainter>
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
