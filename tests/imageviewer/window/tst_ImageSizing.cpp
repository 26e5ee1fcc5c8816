#include "ImageWindow.h"
#include "PercentList.h"
#include "PrintQt.h"

#include <QComboBox>

#include <QLabel>

namespace {

struct ImageSizingTest : testing::Test
{
    ImageWindow window;

    ImageSizingTest()
    {
        window.open();
        window.openPicture(400, 300); // 6000 by 4500 twips
    }

    ImageSize after(const char *item)
    {
        window.choose(item);
        return window.size();
    }
    ImageSize afterPercent(int row)
    {
        auto &list = window.control<QComboBox>("Combo1");
        list.setCurrentIndex(row);
        Q_EMIT list.activated(row);
        return window.size();
    }
    void expectCentered()
    {
        const ImagePlace before = window.place();
        window.form().Geometry().CenterImage();
        EXPECT_EQ(window.place(), before);
    }
    void expectOverflow()
    {
        window.frame.dialogs.expectBox(QStringLiteral("System Error"), QStringLiteral("Error 6: Overflow"))
            .icon(QMessageBox::Critical);
    }
    void expectSquareMessage()
    {
        window.frame.dialogs
            .expectBox(QStringLiteral("Information"), QStringLiteral("The image is already a square."))
            .icon(QMessageBox::Information);
    }
    bool isPanning() { return window.form().Geometry().PanMode() || window.isChecked("mnuViewPan"); }
};

} // namespace

TEST_F(ImageSizingTest, DoublingAndSplittingCompound)
{
    EXPECT_EQ(after("mnuSizeDoubleHeight"), (ImageSize{6000, 9000}));
    EXPECT_TRUE(window.picture().Stretch());
    expectCentered();
    EXPECT_EQ(after("mnuSizeDoubleWidth"), (ImageSize{12000, 9000}));
    EXPECT_EQ(after("mnuSizeSplitHeight"), (ImageSize{12000, 4500}));
    EXPECT_EQ(after("mnuSizeSplitWidth"), (ImageSize{6000, 4500}));
    EXPECT_EQ(after("mnuSizeSplitWidth"), (ImageSize{3000, 4500}));
    expectCentered();
}

TEST_F(ImageSizingTest, LengthsAreNotRounded)
{
    for (int i = 0; i < 8; ++i)
        window.choose("mnuSizeSplitHeight");
    EXPECT_EQ(window.size().height, 17.578125F);
}

TEST_F(ImageSizingTest, ZoomsByTwoAndTheWindowFollows)
{
    EXPECT_EQ(after("mnuSizeZoomOut"), (ImageSize{3000, 2250}));
    const ImageSize before = window.window();
    EXPECT_EQ(after("mnuSizeZoomIn"), (ImageSize{6000, 4500}));
    EXPECT_EQ(window.window(), before); // it is large enough
    EXPECT_EQ(after("mnuSizeZoomIn"), (ImageSize{12000, 9000}));
    EXPECT_TRUE(window.isMaximized());
}

TEST_F(ImageSizingTest, ZoomingInMakesTheWindowLarger)
{
    window.openPicture(250, 200);
    EXPECT_EQ(after("mnuSizeZoomIn"), (ImageSize{7500, 6000}));
    EXPECT_EQ(window.window(), (ImageSize{7620, 6735}));
    EXPECT_EQ(after("mnuSizeZoomOut"), (ImageSize{3750, 3000}));
    EXPECT_EQ(window.window(), (ImageSize{7620, 6735}));
}

TEST_F(ImageSizingTest, AMaximisedWindowStaysSoWhenZoomingIn)
{
    window.openPicture(200, 345); // twice as high it stands out of the window, not of the screen
    window.form().Geometry().maximize();
    ASSERT_LT(window.window().height, 690 * 15);
    window.choose("mnuSizeZoomIn");
    EXPECT_TRUE(window.isMaximized());
}

TEST_F(ImageSizingTest, DoublingKeepsPanMode)
{
    window.choose("mnuViewPan");
    for (const char *item : {"mnuSizeDoubleHeight", "mnuSizeDoubleWidth", "mnuSizeSplitHeight",
                             "mnuSizeSplitWidth", "mnuSizeZoomIn", "mnuSizeZoomOut"})
        window.choose(item);
    EXPECT_TRUE(window.form().Geometry().PanMode());
}

TEST_F(ImageSizingTest, OtherSizesEndPanMode)
{
    for (const char *item : {"mnuSizeRatio43", "mnuSizeMakeSquareWidth", "mnuSizeFitPageL", "mnuSizeFitPageP",
                             "mnuSizeMakeSquareAverage", "mnuSizeRatio54", "mnuSizeMakeSquareHeight",
                             "mnuSizeFittoWindow", "mnuSizeFittoScreen", "mnuSizeActualPixels"}) {
        window.choose("mnuViewPan");
        window.choose(item);
        EXPECT_FALSE(isPanning()) << item;
    }
}

TEST_F(ImageSizingTest, APercentageBeginsWithThePicturesOwnSize)
{
    EXPECT_EQ(afterPercent(3), (ImageSize{12000, 9000}));
    EXPECT_EQ(afterPercent(3), (ImageSize{12000, 9000}));
    EXPECT_TRUE(window.picture().Stretch());
    EXPECT_EQ(after("mnuSizeZoomIn"), (ImageSize{24000, 18000}));
    EXPECT_EQ(afterPercent(0), (ImageSize{1500, 1125}));
    EXPECT_EQ(afterPercent(19), (ImageSize{108000, 81000}));
    EXPECT_EQ(afterPercent(1), (ImageSize{3000, 2250}));
    expectCentered();
}

TEST_F(ImageSizingTest, AQuarterOfASmallPictureIsAQuarter)
{
    window.openPicture(10, 7);
    EXPECT_EQ(afterPercent(0), (ImageSize{37.5F, 26.25F}));
}

TEST_F(ImageSizingTest, ARatioBeginsWithThePicturesOwnWidth)
{
    window.choose("mnuSizeZoomIn");
    EXPECT_EQ(after("mnuSizeRatio43"), (ImageSize{6000, 4500}));
    const std::pair<const char *, float> heights[] = {
        {"mnuSizeRatio11", 6000},  {"mnuSizeRatio54", 4800},   {"mnuSizeRatio149", 3857},
        {"mnuSizeRatio169", 3375}, {"mnuSizeRatio1610", 3750},
    };
    for (const auto &[item, height] : heights)
        EXPECT_EQ(after(item), (ImageSize{6000, height})) << item;
    EXPECT_TRUE(window.picture().Stretch());
    expectCentered();
}

TEST_F(ImageSizingTest, ARatioThatIsTooHighIsReported)
{
    window.openPicture(2200, 20);
    expectOverflow();
    EXPECT_EQ(after("mnuSizeRatio11"), (ImageSize{33000, 300}));
    EXPECT_FALSE(window.picture().Stretch());
}

TEST_F(ImageSizingTest, MakesSquares)
{
    EXPECT_EQ(after("mnuSizeMakeSquareAverage"), (ImageSize{5250, 5250}));
    window.choose("mnuSizeActualPixels");
    EXPECT_EQ(after("mnuSizeMakeSquareWidth"), (ImageSize{6000, 6000}));
    window.choose("mnuSizeActualPixels");
    EXPECT_EQ(after("mnuSizeMakeSquareHeight"), (ImageSize{4500, 4500}));
    EXPECT_TRUE(window.picture().Stretch());
    expectCentered();
}

TEST_F(ImageSizingTest, ASquareStaysOne)
{
    window.choose("mnuSizeMakeSquareWidth");
    for (const char *item :
         {"mnuSizeMakeSquareWidth", "mnuSizeMakeSquareHeight", "mnuSizeMakeSquareAverage"}) {
        expectSquareMessage();
        EXPECT_EQ(after(item), (ImageSize{6000, 6000}));
    }
}

TEST_F(ImageSizingTest, SidesThatDifferTooMuchAreReported)
{
    window.openPicture(2200, 10);
    expectOverflow();
    EXPECT_EQ(after("mnuSizeMakeSquareAverage"), (ImageSize{33000, 150}));
}

TEST_F(ImageSizingTest, FitsALetterPage)
{
    EXPECT_EQ(after("mnuSizeFitPageL"), (ImageSize{15840, 12240}));
    EXPECT_EQ(after("mnuSizeFitPageP"), (ImageSize{12240, 15840}));
    EXPECT_TRUE(window.picture().Stretch());
    expectCentered();
}

TEST_F(ImageSizingTest, FollowsTheWindow)
{
    const ImageSize before = window.window();
    EXPECT_EQ(after("mnuSizeFittoWindow"), before);
    EXPECT_EQ(window.place(), (ImagePlace{0, 0}));
    EXPECT_TRUE(window.isChecked("mnuSizeFittoWindow"));
    EXPECT_TRUE(window.form().Geometry().FitWindowMode());
    window.form().setWidth(7500);
    window.form().setHeight(6000);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.size(), (ImageSize{7500, 5900}));
    EXPECT_EQ(window.place(), (ImagePlace{0, 0}));
}

TEST_F(ImageSizingTest, FollowingTheWindowTwiceEndsIt)
{
    window.choose("mnuSizeFittoWindow");
    window.choose("mnuSizeFittoWindow");
    EXPECT_EQ(window.size(), window.window());
    EXPECT_FALSE(window.form().Geometry().FitWindowMode());
    EXPECT_FALSE(window.isChecked("mnuSizeFittoWindow"));
    const ImageSize before = window.size();
    window.form().setWidth(7500);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.size(), before);
}

TEST_F(ImageSizingTest, FitsTheScreen)
{
    EXPECT_EQ(after("mnuSizeFittoScreen"), (ImageSize{12000, 12000}));
    EXPECT_TRUE(window.picture().Stretch());
    EXPECT_TRUE(window.isMaximized());
}

TEST_F(ImageSizingTest, ComesBackToThePicturesOwnSize)
{
    const ImageSize before = window.window();
    window.choose("mnuSizeFittoScreen");
    window.choose("mnuSizeFittoWindow");
    window.choose("mnuViewPan");
    EXPECT_EQ(after("mnuSizeActualPixels"), (ImageSize{6000, 4500}));
    EXPECT_FALSE(window.picture().Stretch());
    EXPECT_FALSE(isPanning());
    EXPECT_FALSE(window.form().Geometry().FitWindowMode());
    EXPECT_FALSE(window.isChecked("mnuSizeFittoWindow"));
    EXPECT_FALSE(window.isMaximized());
    EXPECT_EQ(window.window(), before);
    expectCentered();
}

TEST_F(ImageSizingTest, ARectangleGrowsNoLargerThanANumberCanSay)
{
    expectOverflow();
    for (int i = 0; i < 116; ++i)
        window.choose("mnuSizeDoubleWidth");
    EXPECT_TRUE(std::isfinite(window.size().width));
}

TEST_F(ImageSizingTest, TheWheelWithCtrlTakesTheNextPercentage)
{
    const auto roll = [&](int eighths, Qt::KeyboardModifiers modifiers) {
        const QPointF at(50, 50);
        QWidget *view = window.picture().parentWidget(); // a picture leaves the wheel to it
        QWheelEvent event(at, view->mapToGlobal(at), {}, {0, eighths}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view, &event);
        return window.size();
    };
    EXPECT_EQ(roll(120, Qt::ControlModifier), (ImageSize{12000, 9000}));
    EXPECT_EQ(roll(240, Qt::ControlModifier), (ImageSize{24000, 18000}));
    EXPECT_EQ(roll(60, Qt::ControlModifier), (ImageSize{24000, 18000}));
    EXPECT_EQ(roll(60, Qt::ControlModifier), (ImageSize{30000, 22500}));
    EXPECT_EQ(roll(-120, Qt::ControlModifier), (ImageSize{24000, 18000}));
    EXPECT_EQ(roll(120, Qt::NoModifier), (ImageSize{24000, 18000}));
    for (int i = 0; i < 10; ++i)
        roll(-120, Qt::ControlModifier);
    EXPECT_EQ(window.size(), (ImageSize{1500, 1125}));
    window.choose("mnuSizeDoubleWidth");
    EXPECT_EQ(roll(-120, Qt::ControlModifier), (ImageSize{3000, 1125})); // there is no row before the first
}

TEST_F(ImageSizingTest, CtrlWithPlusAndMinusTakesTheNextPercentage)
{
    window.form().window()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.form().window()));
    QTest::keyClick(&window.form(), Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(window.size(), (ImageSize{12000, 9000}));
    QTest::keyClick(&window.form(), Qt::Key_Equal, Qt::ControlModifier);
    EXPECT_EQ(window.size(), (ImageSize{18000, 13500}));
    QTest::keyClick(&window.form(), Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(window.size(), (ImageSize{12000, 9000}));
}

TEST_F(ImageSizingTest, TheKeysKeepALargePictureInSight)
{
    window.form().window()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.form().window()));
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(&window.form(), Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(window.size(), (ImageSize{24000, 18000}));
    EXPECT_TRUE(window.isMaximized());
    EXPECT_LE(window.place().left, 0);
    EXPECT_LE(window.place().top, 0);
}

TEST_F(ImageSizingTest, ThePicturesOwnSizeIsWrittenIntoTheSizeBar)
{
    window.choose("mnuViewSizeAndInfo");
    window.choose("mnuSizeSplitHeight");
    window.control<QLabel>("lblImageSize").setText({});
    window.choose("mnuSizeActualPixels");
    const ImageSize pixels{window.size().width / 15, window.size().height / 15};
    EXPECT_EQ(window.control<QLabel>("lblImageSize").text(),
              QStringLiteral("Image Size: %1 \u00d7 %2 px").arg(pixels.width).arg(pixels.height));
    constexpr float above = 736; // twips
    EXPECT_NEAR(window.window().height, window.size().height + above + 300, 1);
}
