#include "ErrorNumberOf.h"
#include "PictureBox.h"
#include "PrintQt.h"

#include <QPainter>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

/// Left half red, right half blue.
QImage halves(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    QPainter(&image).fillRect(width / 2, 0, width - width / 2, height, Qt::blue);
    return image;
}

struct PictureBoxTest : testing::Test
{
    QWidget window;
    PictureBox box{&window};

    PictureBoxTest()
    {
        window.resize(400, 300);
        window.setStyleSheet(QStringLiteral("background: lime"));
    }
    /// What the window shows, at \a ratio pixels of the device to one of the window.
    QImage shown(double ratio = 1)
    {
        QImage image((QSizeF(window.size()) * ratio).toSize(), QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(QColor(0, 255, 0));
        window.render(&image);
        return image;
    }
};

} // namespace

TEST_F(PictureBoxTest, WithoutStretchItTakesThePicturesOwnSize)
{
    box.setPicture(halves(40, 20));
    EXPECT_FALSE(box.Stretch());
    EXPECT_EQ(box.Width(), 600);
    EXPECT_EQ(box.Height(), 300);
    box.setStretch(true);
    box.setWidth(1200);
    box.setPicture(halves(30, 30));
    EXPECT_EQ(box.Width(), 1200);
    EXPECT_EQ(box.Height(), 300);
    box.setStretch(false);
    EXPECT_EQ(box.Width(), 450);
    EXPECT_EQ(box.Height(), 450);
    EXPECT_EQ(box.size(), QSize(30, 30));
}

TEST_F(PictureBoxTest, LengthsKeepTheirFractions)
{
    box.setPicture(halves(33, 20));
    box.setStretch(true);
    for (int i = 0; i < 4; ++i)
        box.setWidth(box.Width() / 2);
    EXPECT_EQ(box.Width(), 30.9375F);
    EXPECT_EQ(box.width(), 2);
    for (int i = 0; i < 4; ++i)
        box.setWidth(box.Width() + box.Width());
    EXPECT_EQ(box.Width(), 495);
    box.setLeft(-7.4F);
    box.setTop(22.6F);
    EXPECT_EQ(box.Left(), -7.4F);
    EXPECT_EQ(box.pos(), QPoint(0, 2));
}

TEST_F(PictureBoxTest, ANegativeLengthIsRefused)
{
    box.setPicture(halves(40, 20));
    EXPECT_EQ(errorNumberOf([&] { box.setWidth(-1); }), ErrorNumber::InvalidPropertyValue);
    EXPECT_EQ(errorNumberOf([&] { box.setHeight(-1); }), ErrorNumber::InvalidPropertyValue);
    EXPECT_EQ(box.Width(), 600);
    EXPECT_EQ(box.Height(), 300);
}

TEST_F(PictureBoxTest, ThePictureStaysAsItIs)
{
    const QImage picture = halves(40, 20);
    box.setPicture(picture);
    box.setStretch(true);
    box.setWidth(150);
    shown();
    EXPECT_EQ(box.Picture(), picture);
}

TEST_F(PictureBoxTest, AStretchedPictureFillsTheRectangle)
{
    box.setPicture(halves(4, 2));
    box.setStretch(true);
    box.setWidth(200 * 15);
    box.setHeight(100 * 15);
    const QImage image = shown();
    EXPECT_EQ(image.pixelColor(99, 99), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(100, 0), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(199, 99), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(200, 99), QColor(0, 255, 0));
}

TEST_F(PictureBoxTest, AnUnstretchedPictureIsDrawnAtItsOwnSize)
{
    box.setPicture(halves(40, 20));
    box.setWidth(60 * 15);
    const QImage image = shown();
    EXPECT_EQ(image.pixelColor(19, 0), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(39, 19), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(40, 10), QColor(0, 255, 0));
}

TEST_F(PictureBoxTest, AReducedPictureIsSmooth)
{
    QImage stripes(400, 10, QImage::Format_RGB32);
    for (int x = 0; x < stripes.width(); ++x)
        QPainter(&stripes).fillRect(x, 0, 1, 10, x % 2 == 0 ? Qt::black : Qt::white);
    box.setPicture(stripes);
    box.setStretch(true);
    box.setWidth(100 * 15);
    const QColor mixed = shown().pixelColor(50, 5);
    EXPECT_GT(mixed.red(), 64);
    EXPECT_LT(mixed.red(), 192);
    box.setPicture(halves(400, 10));
    EXPECT_EQ(shown().pixelColor(25, 5), QColor(Qt::red));
}

TEST_F(PictureBoxTest, ItIsSharpOnAScreenOfTwoPixels)
{
    QImage fine(200, 10, QImage::Format_RGB32);
    for (int x = 0; x < fine.width(); ++x)
        QPainter(&fine).fillRect(x, 0, 1, 10, x % 2 == 0 ? Qt::black : Qt::white);
    box.setPicture(fine);
    box.setStretch(true);
    box.setWidth(100 * 15);
    box.setHeight(5 * 15);
    const QImage image = shown(2);
    EXPECT_EQ(image.pixelColor(100, 5), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(101, 5), QColor(Qt::white));
}

TEST_F(PictureBoxTest, AHugeRectangleIsDrawnWhereItIsSeen)
{
    QImage picture = halves(4000, 10);
    picture.setPixelColor(3999, 5, Qt::yellow);
    box.setPicture(picture);
    box.setStretch(true);
    box.setWidth(72'000.0F * 15);
    box.setHeight(200 * 15);
    box.setLeft((400 - 72'000.0F) * 15);
    const QImage image = shown();
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(399, 110), QColor(Qt::yellow));
    EXPECT_EQ(image.pixelColor(399, 90), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(380, 110), QColor(Qt::blue));
}

TEST_F(PictureBoxTest, MouseEventsAreInTwips)
{
    box.setPicture(halves(40, 20));
    box.setTop(300);
    QSignalSpy down(&box, &PictureBox::MouseDown);
    QSignalSpy up(&box, &PictureBox::MouseUp);
    QSignalSpy move(&box, &PictureBox::MouseMove);
    QSignalSpy click(&box, &PictureBox::Click);
    QTest::mousePress(&box, Qt::LeftButton, {}, {10, 4});
    QMouseEvent drag(QEvent::MouseMove, QPointF(-2, 6), box.mapToGlobal(QPointF(-2, 6)), Qt::NoButton,
                     Qt::LeftButton, {});
    QCoreApplication::sendEvent(&box, &drag);
    EXPECT_TRUE(click.isEmpty());
    QTest::mouseRelease(&box, Qt::LeftButton, {}, {10, 4});
    ASSERT_EQ(down.size(), 1);
    EXPECT_EQ(down[0][0].value<Qt::MouseButton>(), Qt::LeftButton);
    EXPECT_EQ(down[0][1].toFloat(), 150);
    EXPECT_EQ(down[0][2].toFloat(), 60);
    ASSERT_EQ(move.size(), 1);
    EXPECT_EQ(move[0][0].value<Qt::MouseButtons>(), Qt::LeftButton);
    EXPECT_EQ(move[0][1].toFloat(), -30);
    EXPECT_EQ(up.size(), 1);
    EXPECT_EQ(click.size(), 1);
}

TEST_F(PictureBoxTest, OnlyTheLeftButtonOnTheRectangleClicks)
{
    box.setPicture(halves(40, 20));
    QSignalSpy click(&box, &PictureBox::Click);
    QTest::mouseClick(&box, Qt::RightButton, {}, {10, 4});
    QTest::mousePress(&box, Qt::LeftButton, {}, {10, 4});
    QTest::mouseRelease(&box, Qt::LeftButton, {}, {60, 4});
    EXPECT_TRUE(click.isEmpty());
}
