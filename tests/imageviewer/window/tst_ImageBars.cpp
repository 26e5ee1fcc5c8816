#include "ImageWindow.h"
#include "PercentList.h"
#include "PrintQt.h"

#include <QLabel>

namespace {

struct ImageBarsTest : testing::Test
{
    ImageWindow window;

    ImageBarsTest()
    {
        window.open();
        window.openPicture(400, 300);
    }

    float height() { return window.window().height; }
    int offset() { return window.form().Geometry().BarOffset(); }
    PercentList &list() { return window.control<PercentList>("Combo1"); }
    void chooseRow(int row)
    {
        list().setCurrentIndex(row);
        Q_EMIT list().activated(row);
    }
    QString imageSize() { return window.control<QLabel>("lblImageSize").text(); }
    QString fileSize() { return window.control<QLabel>("lblFileSize").text(); }
};

} // namespace

TEST_F(ImageBarsTest, BeginsWithoutAnOffset)
{
    EXPECT_EQ(offset(), 0);
}

TEST_F(ImageBarsTest, TheToolbarComesAndGoes)
{
    const float before = height();
    window.choose("mnuViewToolbar");
    EXPECT_FALSE(window.control<QWidget>("tbToolbar").isVisible());
    EXPECT_EQ(offset(), 0);
    EXPECT_EQ(height(), before); // not lowered where there is no bar more
    window.choose("mnuViewToolbar");
    EXPECT_TRUE(window.control<QWidget>("tbToolbar").isVisible());
    EXPECT_EQ(offset(), 300);
    EXPECT_EQ(height(), before + 300);
    EXPECT_EQ(window.place().top, (height() - 300 - 4500 - 740) / 2 + 300);
}

TEST_F(ImageBarsTest, BothBarsTakeTwiceAsMuch)
{
    window.choose("mnuViewSizeAndInfo");
    window.choose("mnuViewToolbar");
    EXPECT_EQ(offset(), -300);
    const float before = height();
    window.choose("mnuViewToolbar");
    EXPECT_EQ(offset(), 600);
    EXPECT_EQ(height(), before + 300);
    window.choose("mnuViewToolbar");
    EXPECT_EQ(height(), before);
}

TEST_F(ImageBarsTest, TheSizeToolbarShowsTheSizes)
{
    const float before = height();
    window.choose("mnuViewSizeAndInfo");
    EXPECT_TRUE(window.control<QWidget>("Picture1").isVisible());
    EXPECT_TRUE(window.isChecked("mnuViewSizeAndInfo"));
    EXPECT_EQ(height(), before + 300);
    EXPECT_EQ(offset(), 300);
    EXPECT_EQ(imageSize(), QStringLiteral("Image Size: 400 × 300 px"));
    EXPECT_EQ(fileSize(), QStringLiteral("351.6152 KB"));
    EXPECT_EQ(list().currentText(), QStringLiteral("100"));
    window.choose("mnuViewSizeAndInfo");
    EXPECT_FALSE(window.isChecked("mnuViewSizeAndInfo"));
    EXPECT_EQ(height(), before);
    EXPECT_EQ(offset(), 300);
}

TEST_F(ImageBarsTest, TheSizeToolbarAloneHasANegativeOffset)
{
    window.choose("mnuViewToolbar");
    window.choose("mnuViewSizeAndInfo");
    EXPECT_EQ(offset(), -300);
    window.choose("mnuViewSizeAndInfo");
    EXPECT_EQ(offset(), 0);
}

TEST_F(ImageBarsTest, TheLabelsAreASixthOfAnInchApart)
{
    window.choose("mnuViewSizeAndInfo");
    QCoreApplication::processEvents();
    const auto &size = window.control<QLabel>("lblImageSize");
    EXPECT_EQ(window.control<QLabel>("lblFileSize").x(), size.x() + size.width() + 16);
}

TEST_F(ImageBarsTest, TheSizesAreOfTheRectangle)
{
    window.choose("mnuViewSizeAndInfo");
    window.choose("mnuSizeSplitWidth");
    window.choose("mnuSizeSplitWidth");
    window.choose("mnuSizeSplitWidth");
    window.form().UpdateSizeLabels();
    EXPECT_EQ(imageSize(), QStringLiteral("Image Size: 50 × 300 px"));
    window.choose("mnuSizeSplitWidth");
    window.choose("mnuSizeSplitWidth");
    window.form().UpdateSizeLabels();
    EXPECT_EQ(imageSize(), QStringLiteral("Image Size: 12.5 × 300 px"));
}

TEST_F(ImageBarsTest, ShowingTheLabelsMakesTheWindowHigherEachTime)
{
    window.choose("mnuViewSizeAndInfo");
    const float before = height();
    window.form().UpdateSizeLabels();
    window.form().UpdateSizeLabels();
    EXPECT_EQ(height(), before + 600);
    window.choose("mnuViewSizeAndInfo");
    window.form().UpdateSizeLabels();
    EXPECT_EQ(height(), before + 300);
}

TEST_F(ImageBarsTest, AFileThatIsGoneHasNoBytes)
{
    ASSERT_TRUE(QFile::remove(window.path("picture.bmp")));
    window.frame.dialogs.expectBox(QStringLiteral("System Error"),
                                   QStringLiteral("Error 53: File not found"));
    window.choose("mnuViewSizeAndInfo");
    EXPECT_EQ(fileSize(), QStringLiteral("0 Bytes"));
}

TEST_F(ImageBarsTest, ShownAgainTheListTakesTheNextChoiceForItsOwn)
{
    window.choose("mnuViewSizeAndInfo");
    chooseRow(3);
    EXPECT_EQ(window.size(), (ImageSize{12000, 9000}));
    chooseRow(2);
    // 100 is selected already, so no click takes the flag back.
    window.choose("mnuViewSizeAndInfo");
    window.choose("mnuViewSizeAndInfo");
    chooseRow(3);
    EXPECT_EQ(window.size(), (ImageSize{6000, 4500}));
    chooseRow(3);
    EXPECT_EQ(window.size(), (ImageSize{12000, 9000}));
}

TEST_F(ImageBarsTest, ShownAgainTheListSelects100AndLeavesTheSize)
{
    window.choose("mnuViewSizeAndInfo");
    chooseRow(3);
    window.choose("mnuViewSizeAndInfo");
    EXPECT_EQ(list().currentText(), QStringLiteral("100"));
    EXPECT_EQ(window.size(), (ImageSize{12000, 9000}));
    chooseRow(0);
    EXPECT_EQ(window.size(), (ImageSize{1500, 1125}));
}

TEST_F(ImageBarsTest, ANewPictureTakesThePercentage)
{
    window.choose("mnuViewSizeAndInfo");
    chooseRow(1);
    window.openPicture(200, 100);
    EXPECT_EQ(window.size(), (ImageSize{1500, 750}));
    EXPECT_EQ(imageSize(), QStringLiteral("Image Size: 200 × 100 px"));
}

TEST_F(ImageBarsTest, ANewPicturesWindowHasTheLastWord)
{
    window.choose("mnuViewSizeAndInfo");
    window.openPicture(400, 320);
    EXPECT_EQ(height(), 4800 + 735);
    window.openPicture(400, 320);
    EXPECT_EQ(height(), 4800 + 735);
}

TEST_F(ImageBarsTest, ReturnInTheListIsAClick)
{
    window.choose("mnuViewSizeAndInfo");
    window.choose("mnuSizeZoomIn");
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Return);
    EXPECT_EQ(window.size(), (ImageSize{6000, 4500}));
    QTest::keyClick(&list(), Qt::Key_Down);
    EXPECT_EQ(window.size(), (ImageSize{12000, 9000}));
}

TEST_F(ImageBarsTest, AWindowOfFullSizeKeepsIt)
{
    window.form().Geometry().maximize();
    QCoreApplication::processEvents();
    const float before = height();
    window.choose("mnuViewToolbar");
    window.choose("mnuViewToolbar");
    window.choose("mnuViewSizeAndInfo");
    EXPECT_TRUE(window.isMaximized());
    EXPECT_EQ(height(), before);
    EXPECT_EQ(window.place().top, (height() - 300 - 4500 - 740) / 2 + 300);
}

TEST_F(ImageBarsTest, AnUnstretchedPictureHoldsTheWindowOpen)
{
    window.form().setWidth(4500);
    window.form().setHeight(4200);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.window(), (ImageSize{6000, 4500}));
    window.choose("mnuSizeSplitWidth");
    window.choose("mnuSizeSplitHeight");
    window.form().setWidth(1500);
    window.form().setHeight(1500);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.window(), (ImageSize{4350, 4050}));
}

TEST_F(ImageBarsTest, ThePictureStaysInTheMiddle)
{
    window.form().setWidth(9000);
    window.form().setHeight(7500);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.place(), (ImagePlace{(9000 - 6000 - 112) / 2, (7500 - 4500 - 740) / 2}));
}

TEST_F(ImageBarsTest, WhilePanningTheBarOfSizesMovesAMaximisedPicture)
{
    window.form().Geometry().maximize();
    window.choose("mnuViewPan");
    QCoreApplication::processEvents();
    window.form().Geometry().setPlace({-30, 0});
    window.choose("mnuViewSizeAndInfo");
    EXPECT_EQ(window.place(), (ImagePlace{-30, -300}));
    window.form().Geometry().setPlace({-30, -600});
    window.choose("mnuViewSizeAndInfo");
    EXPECT_EQ(window.place(), (ImagePlace{-30, 0}));
}

TEST_F(ImageBarsTest, WhatIsOpenedInAFittedWindowBeginsAtTheCorner)
{
    window.choose("mnuSizeFittoWindow");
    window.form().Geometry().setPlace({-30, -600});
    window.openPicture(500, 400);
    EXPECT_EQ(window.place(), (ImagePlace{0, 0}));
}
