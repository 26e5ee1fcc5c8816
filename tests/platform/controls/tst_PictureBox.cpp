#include "ErrorNumberOf.h"
#include "PictureBox.h"
#include "PrintQt.h"

#include <QPainter>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>
#include <limits>

namespace {

/// Columns of black and white in turn.
QImage stripes(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int x = 0; x < width; ++x)
        QPainter(&image).fillRect(x, 0, 1, height, x % 2 == 0 ? Qt::black : Qt::white);
    return image;
}

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
    const float infinite = std::numeric_limits<float>::infinity();
    EXPECT_EQ(errorNumberOf([&] { box.setWidth(infinite); }), ErrorNumber::Overflow);
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
    box.setPicture(stripes(400, 10));
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
    box.setPicture(stripes(200, 10));
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

TEST_F(PictureBoxTest, APictureIsSmoothUpToFiveTimesItsSizeAndThenSquares)
{
    box.setPicture(halves(20, 10));
    box.setStretch(true);
    for (const int times : {2, 4, 5, 18}) {
        box.setWidth(float(20 * times * 15));
        box.setHeight(float(10 * times * 15));
        const QImage image = shown();
        const int middle = 10 * times;
        const bool isMixed = image.pixelColor(middle - 1, 5) != QColor(Qt::red);
        EXPECT_EQ(isMixed, times < 5) << times;
        EXPECT_EQ(image.pixelColor(middle - times, 5), QColor(Qt::red));
        EXPECT_EQ(image.pixelColor(middle + times, 5), QColor(Qt::blue));
    }
}

TEST_F(PictureBoxTest, AtItsOwnSizeEachPixelIsOne)
{
    const QImage picture = stripes(200, 10);
    box.setPicture(picture);
    EXPECT_EQ(shown().copy(0, 0, 200, 10), picture);
    box.setStretch(true);
    EXPECT_EQ(shown().copy(0, 0, 200, 10), picture);
}

TEST_F(PictureBoxTest, APieceIsDrawnAsItIsInTheWhole)
{
    QImage picture(90, 70, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixelColor(x, y, QColor((x * 37) % 256, (y * 61) % 256, (x * y) % 256));
    box.setPicture(picture);
    box.setStretch(true);
    for (const double times : {0.7, 1.3, 3.7, 5.3}) {
        box.setWidth(float(90 * times * 15));
        box.setHeight(float(70 * times * 15));
        const QImage whole = box.grab().toImage();
        const QRect piece(11, 7, 23, 31);
        const QImage part = box.grab(piece).toImage();
        const QImage same = whole.copy(piece);
        for (int y = 0; y < part.height(); ++y) {
            for (int x = 0; x < part.width(); ++x) {
                EXPECT_NEAR(qRed(part.pixel(x, y)), qRed(same.pixel(x, y)), 3)
                    << times << ' ' << x << ' ' << y;
                EXPECT_NEAR(qGreen(part.pixel(x, y)), qGreen(same.pixel(x, y)), 3) << times;
            }
        }
    }
}

TEST_F(PictureBoxTest, ALargePictureIsDrawnSmoothlyOnceItsCopiesAreThere)
{
    window.show();
    box.setPicture(stripes(4000, 600));
    box.setStretch(true);
    box.setWidth(301 * 15);
    box.setHeight(45 * 15);
    const auto isGrey = [this] {
        const QImage image = shown();
        for (int x = 20; x < 280; ++x) {
            if (qAbs(qRed(image.pixel(x, 20)) - 128) > 12)
                return false;
        }
        return true;
    };
    EXPECT_FALSE(isGrey());
    EXPECT_TRUE(QTest::qWaitFor(isGrey));
}

TEST_F(PictureBoxTest, ItIsDrawnAgainWhenItsCopiesAreThere)
{
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    box.setStretch(true);
    box.setWidth(300 * 15);
    box.setHeight(200 * 15);
    struct Paints : QObject
    {
        int count = 0;
        bool eventFilter(QObject *, QEvent *event) override
        {
            count += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
    } paints;
    box.installEventFilter(&paints);
    box.setPicture(stripes(4000, 600));
    box.repaint();
    paints.count = 0;
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count > 0; }));
}

TEST_F(PictureBoxTest, OtherFormatsAreDrawnToo)
{
    const QImage picture = halves(40, 20);
    for (const QImage::Format format : {QImage::Format_Indexed8, QImage::Format_ARGB32, QImage::Format_RGB888,
                                        QImage::Format_RGB16, QImage::Format_RGBA64}) {
        box.setPicture(picture.convertToFormat(format));
        box.setStretch(true);
        for (const int width : {20, 60, 399}) {
            box.setWidth(float(width * 15));
            const QImage image = shown();
            EXPECT_EQ(image.pixelColor(2, 10), QColor(Qt::red)) << format << ' ' << width;
            EXPECT_EQ(image.pixelColor(width - 3, 10), QColor(Qt::blue)) << format << ' ' << width;
        }
    }
}

TEST_F(PictureBoxTest, WhatIsClearShowsTheWindow)
{
    QImage picture(40, 20, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    box.setPicture(picture);
    EXPECT_EQ(shown().pixelColor(20, 10), QColor(0, 255, 0));
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
