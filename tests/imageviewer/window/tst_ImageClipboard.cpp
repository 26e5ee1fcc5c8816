#include "ImageWindow.h"
#include "PrintQt.h"

#include <QClipboard>
#include <QLabel>
#include <QMimeData>

namespace {

struct ImageClipboardTest : testing::Test
{
    ImageWindow window;
    QClipboard &clipboard = *QGuiApplication::clipboard();

    ImageClipboardTest()
    {
        clipboard.clear();
        window.open();
    }
    ~ImageClipboardTest() override { clipboard.clear(); }

    void put(int width, int height)
    {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::green);
        clipboard.setImage(image);
    }
};

} // namespace

TEST_F(ImageClipboardTest, CopiesThePictureAtItsOwnSize)
{
    window.openPicture(40, 30);
    window.choose("mnuSizeZoomIn");
    clipboard.setText(QStringLiteral("before"));
    window.choose("mnuEditCopy");
    EXPECT_EQ(clipboard.image().size(), QSize(40, 30));
    EXPECT_EQ(clipboard.image().pixelColor(5, 5), QColor(Qt::red));
    EXPECT_FALSE(clipboard.mimeData()->hasText());
}

TEST_F(ImageClipboardTest, WithoutAPictureACopyIsReported)
{
    window.picture().setPicture({});
    window.frame.dialogs.expectBox(QStringLiteral("Error"), QStringLiteral("481 : Invalid picture."))
        .icon(QMessageBox::Warning);
    window.choose("mnuEditCopy");
}

TEST_F(ImageClipboardTest, PastesAPicture)
{
    window.choose("mnuViewPan");
    window.form().Geometry().maximize();
    put(400, 320);
    window.choose("mnuEditPaste");
    EXPECT_EQ(window.size(), (ImageSize{6000, 4800}));
    EXPECT_FALSE(window.picture().Stretch());
    EXPECT_FALSE(window.form().Geometry().PanMode());
    EXPECT_FALSE(window.isChecked("mnuViewPan"));
    EXPECT_FALSE(window.isMaximized());
    EXPECT_EQ(window.window(), (ImageSize{6120, 5535}));
    EXPECT_EQ(window.place(), (ImagePlace{4, -2.5F}));
    QTest::mouseClick(&window.picture(), Qt::LeftButton); // opens no dialog
}

TEST_F(ImageClipboardTest, APastedPictureIsSavedAndCopied)
{
    put(40, 30);
    window.choose("mnuEditPaste");
    window.frame.dialogs.expectFileDialog(QStringLiteral("Save")).accept(window.path("saved.bmp"));
    window.choose("mnuFileSaveAs");
    EXPECT_EQ(QImage(window.path("saved.bmp")).pixelColor(5, 5), QColor(Qt::green));
    clipboard.clear();
    window.choose("mnuEditCopy");
    EXPECT_EQ(clipboard.image().size(), QSize(40, 30));
}

TEST_F(ImageClipboardTest, APictureAsLargeAsTheScreenMaximisesTheWindow)
{
    window.openPicture(40, 30);
    window.choose("mnuViewSizeAndInfo");
    put(800, 20);
    window.choose("mnuEditPaste");
    EXPECT_TRUE(window.isMaximized());
    EXPECT_EQ(window.picture().Picture().size(), QSize(800, 20));
    EXPECT_EQ(window.control<QLabel>("lblImageSize").text(), QStringLiteral("Image Size: 40 × 30 px"));
}

TEST_F(ImageClipboardTest, APasteShowsTheSizes)
{
    window.choose("mnuViewSizeAndInfo");
    put(400, 320);
    window.choose("mnuEditPaste");
    EXPECT_EQ(window.control<QLabel>("lblImageSize").text(), QStringLiteral("Image Size: 400 × 320 px"));
    EXPECT_EQ(window.window().height, 5535 + 300);
}

TEST_F(ImageClipboardTest, WithoutAPictureAPasteLeavesTheOldOne)
{
    window.openPicture(40, 30);
    for (int i = 0; i < 2; ++i) {
        window.frame.dialogs.expectBox(QStringLiteral("System Error"),
                                       QStringLiteral("Error 481: Invalid picture"));
        window.choose("mnuEditPaste");
        EXPECT_EQ(window.picture().Picture().size(), QSize(40, 30));
        clipboard.setText(QStringLiteral("text"));
    }
}
