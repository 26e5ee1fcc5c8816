#include "ImageWindow.h"
#include "PrintQt.h"

namespace {

/// A picture of 900 by 850 pixels in a window of 6000 by 5250 twips.
struct ImagePanningTest : testing::Test
{
    ImageWindow window;

    ImagePanningTest()
    {
        window.open();
        window.openPicture(450, 425);
        window.choose("mnuSizeDoubleWidth");
        window.choose("mnuSizeDoubleHeight");
        window.form().setWidth(6000);
        window.form().setHeight(5250);
        QCoreApplication::processEvents();
        window.form().Geometry().setPlace({-1500, -1500});
    }

    void mouse(QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons buttons)
    {
        QMouseEvent event(type, at, window.picture().mapToGlobal(QPointF(at)), button, buttons, {});
        QCoreApplication::sendEvent(&window.picture(), &event);
    }
    void press(QPoint at) { mouse(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton); }
    void move(QPoint at, Qt::MouseButtons buttons = Qt::LeftButton)
    {
        mouse(QEvent::MouseMove, at, Qt::NoButton, buttons);
    }
    void release(QPoint at) { mouse(QEvent::MouseButtonRelease, at, Qt::LeftButton, {}); }
    void moveFiveTimes(QPoint at, Qt::MouseButtons buttons = Qt::LeftButton)
    {
        for (int i = 0; i < 5; ++i)
            move(at, buttons);
    }
};

} // namespace

TEST_F(ImagePanningTest, EveryFifthMoveMovesThePicture)
{
    window.choose("mnuViewPan");
    press({200, 200});
    for (int i = 0; i < 4; ++i)
        move({296, 152});
    EXPECT_EQ(window.place(), (ImagePlace{-1500, -1500}));
    move({296, 152});
    // 96 and -48 pixels are 1440 and -720 twips.
    EXPECT_EQ(window.place(), (ImagePlace{-500, -2000}));
    release({296, 152});
    moveFiveTimes({400, 400}, {});
    EXPECT_EQ(window.place(), (ImagePlace{-500, -2000}));
}

TEST_F(ImagePanningTest, WithoutPanModeNothingMoves)
{
    press({200, 200});
    moveFiveTimes({296, 152});
    EXPECT_EQ(window.place(), (ImagePlace{-1500, -1500}));
    EXPECT_EQ(window.picture().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(ImagePanningTest, AnotherButtonMovesNothingButTheClampsRun)
{
    window.choose("mnuViewPan");
    window.form().Geometry().setPlace({100, -1500});
    mouse(QEvent::MouseButtonPress, {200, 200}, Qt::RightButton, Qt::RightButton);
    moveFiveTimes({296, 152}, Qt::RightButton);
    EXPECT_EQ(window.place(), (ImagePlace{0, -1500}));
}

TEST_F(ImagePanningTest, AMoveWithoutAButtonCounts)
{
    window.choose("mnuViewPan");
    for (int i = 0; i < 3; ++i)
        move({10, 10}, {});
    press({200, 200});
    move({296, 152});
    EXPECT_EQ(window.place().left, -1500);
    move({296, 152});
    EXPECT_EQ(window.place().left, -500);
}

TEST_F(ImagePanningTest, ThePictureStaysInReach)
{
    window.choose("mnuViewPan");
    press({200, 200});
    moveFiveTimes({2000, 2000});
    EXPECT_EQ(window.place(), (ImagePlace{0, 0}));
    release({2000, 2000});
    press({800, 800});
    moveFiveTimes({-2000, -2000});
    // 128 pixels stay on the right; below, the whole window is filled.
    EXPECT_EQ(window.place(), (ImagePlace{1920 - 13500, 5250 - 12750}));
}

TEST_F(ImagePanningTest, APictureThatFitsMovesToTheEdgesAlone)
{
    window.openPicture(100, 80);
    window.choose("mnuViewPan");
    ASSERT_GT(window.place().left, 0);
    ASSERT_GT(window.place().top, 0);
    press({20, 20});
    moveFiveTimes({40, 40});
    EXPECT_EQ(window.place(), (ImagePlace{0, 0}));
}

TEST_F(ImagePanningTest, ThePointerIsAHandFromThePressToTheEndOfPanMode)
{
    window.choose("mnuViewPan");
    EXPECT_EQ(window.picture().cursor().shape(), Qt::ArrowCursor);
    press({200, 200});
    EXPECT_EQ(window.picture().cursor().shape(), Qt::OpenHandCursor);
    EXPECT_EQ(window.form().cursor().shape(), Qt::OpenHandCursor);
    release({200, 200});
    EXPECT_EQ(window.picture().cursor().shape(), Qt::OpenHandCursor);
    window.choose("mnuViewPan");
    EXPECT_EQ(window.picture().cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(window.form().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(ImagePanningTest, InPanModeThePictureIsNotCentered)
{
    window.choose("mnuViewPan");
    window.form().setWidth(6600);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.place(), (ImagePlace{-1500, -1500}));
    window.choose("mnuViewPan");
    window.form().setWidth(6000);
    QCoreApplication::processEvents();
    EXPECT_NE(window.place(), (ImagePlace{-1500, -1500}));
}

TEST_F(ImagePanningTest, TheArrowKeysMoveThePicture)
{
    window.form().setFocus();
    QWidget *view = window.picture().parentWidget();
    QTest::keyClick(view, Qt::Key_Right);
    EXPECT_EQ(window.place(), (ImagePlace{-2000, -1500}));
    QTest::keyClick(view, Qt::Key_Left);
    QTest::keyClick(view, Qt::Key_Down);
    EXPECT_EQ(window.place(), (ImagePlace{-1500, -2000}));
    for (int i = 0; i < 9; ++i)
        QTest::keyClick(view, Qt::Key_Up);
    EXPECT_EQ(window.place(), (ImagePlace{-1500, 0}));
}

TEST_F(ImagePanningTest, TheArrowKeysLeaveAPictureThatFits)
{
    window.openPicture(100, 80);
    const ImagePlace before = window.place();
    QTest::keyClick(window.picture().parentWidget(), Qt::Key_Right);
    EXPECT_EQ(window.place(), before);
}

TEST_F(ImagePanningTest, AnArrowKeyLeavesTheOtherSideWhereItIs)
{
    window.form().setWidth(15000); // wider than the picture
    QCoreApplication::processEvents();
    window.form().Geometry().setPlace({700, -1500});
    QTest::keyClick(window.picture().parentWidget(), Qt::Key_Down);
    EXPECT_EQ(window.place(), (ImagePlace{700, -2000}));
}
