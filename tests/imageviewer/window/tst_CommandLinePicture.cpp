#include "ImageWindow.h"
#include "PrintQt.h"

#include <QLabel>

namespace {

struct CommandLinePictureTest : testing::Test
{
    ImageWindow window;

    QByteArray picture() { return window.addPicture("picture.bmp", 600, 200).toLocal8Bit(); }
    void openWith(const QByteArray &commandLine)
    {
        ImageWindow::setCommandLine(commandLine);
        window.open();
    }
    bool isLoaded() { return window.picture().Picture().size() == QSize(600, 200); }
};

} // namespace

TEST_F(CommandLinePictureTest, IsLoadedWithoutItsQuotes)
{
    openWith('"' + picture() + '"');
    EXPECT_TRUE(isLoaded());
    EXPECT_EQ(window.size(), (ImageSize{9000, 3000}));
    EXPECT_EQ(window.form().FileDialog().FileName, window.path("picture.bmp"));
    EXPECT_EQ(window.form().Caption(), QStringLiteral("Quill-ImageViewer"));
    EXPECT_EQ(window.window().width, 9000);               // it holds the window open
    QTest::mouseClick(&window.picture(), Qt::LeftButton); // opens no dialog
    window.choose("mnuViewSizeAndInfo");
    EXPECT_EQ(window.control<QLabel>("lblFileSize").text(), QStringLiteral("351.6152 KB"));
}

TEST_F(CommandLinePictureTest, WithoutQuotesItLosesCharactersAllTheSame)
{
    openWith('x' + picture() + 'y');
    EXPECT_TRUE(isLoaded());
}

TEST_F(CommandLinePictureTest, AMissingFileIsNoMessage)
{
    openWith(picture()); // without its first and last letter there is no such file
    EXPECT_FALSE(isLoaded());
    EXPECT_TRUE(window.frame.dialogs.seen().isEmpty());
    window.frame.dialogs.expectFileDialog(QStringLiteral("Open")).cancel();
    QTest::mouseClick(&window.picture(), Qt::LeftButton);
}

TEST_F(CommandLinePictureTest, ALetterAloneIsNoFile)
{
    openWith("x");
    EXPECT_TRUE(window.frame.dialogs.seen().isEmpty());
    EXPECT_EQ(window.form().FileDialog().FileName, QString());
}

TEST_F(CommandLinePictureTest, WhatIsNoPictureIsReported)
{
    window.scratch.addFile("text.bmp", "no picture");
    window.frame.dialogs.expectBox(QStringLiteral("Error"), QStringLiteral("Invalid Picture"))
        .icon(QMessageBox::Warning);
    openWith('"' + window.scratch.file("text.bmp") + '"');
    EXPECT_TRUE(window.isOpen());
    EXPECT_EQ(window.picture().Picture().size(), QSize(240, 160));
}
