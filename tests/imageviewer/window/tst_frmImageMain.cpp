#include "DropFiles.h"
#include "FullDisk.h"
#include "HostileNames.h"
#include "ImageWindow.h"
#include "PrintQt.h"
#include "ShownText.h"
#include "Toolbar.h"

#include <QLabel>
#include <QMenu>
#include <QToolButton>
#include <sys/stat.h>

namespace {

struct ImageMainTest : testing::Test
{
    ImageWindow window;

    ImageMainTest() { window.open(); }

    void expectError(const QString &title, const QString &text)
    {
        window.frame.dialogs.expectBox(title, text).icon(QMessageBox::Critical);
    }
    void expectInvalid()
    {
        expectError(QStringLiteral("System Error"), QStringLiteral("Error 481: Invalid picture"));
    }
    void openInvalid(const QByteArray &name)
    {
        window.frame.dialogs.expectFileDialog(QStringLiteral("Open")).accept(window.path(name));
        expectInvalid();
        window.choose("mnuFileOpen");
    }
    QImage saved(const QString &path) { return QImage(path); }
    void save(const QString &path)
    {
        window.frame.dialogs.expectFileDialog(QStringLiteral("Save"))
            .filters({QStringLiteral("Bitmaps (*.bmp, *.dib)")})
            .accept(path);
        window.choose("mnuFileSaveAs");
    }
    void expectReplacing(const QString &name)
    {
        // Qt's own question.
        window.frame.dialogs
            .expectBox(QStringLiteral("Save"),
                       name + QStringLiteral(" already exists.\nDo you want to replace it?"))
            .press(QMessageBox::Yes);
    }
    void clickPicture() { QTest::mouseClick(&window.picture(), Qt::LeftButton); }
    bool isPictureShown() { return window.form().Caption().startsWith(QStringLiteral("picture.bmp")); }
};

using HostileImageTest = testing::TestWithParam<HostileName>;

} // namespace

// ---- Start

TEST_F(ImageMainTest, BeginsWithTheStartPicture)
{
    EXPECT_EQ(window.form().Caption(), QStringLiteral("Quill-ImageViewer"));
    EXPECT_EQ(window.size(), (ImageSize{240 * 15, 160 * 15}));
    EXPECT_EQ(window.window(), (ImageSize{6105, 4800}));
    EXPECT_TRUE(window.isChecked("mnuViewToolbar"));
    EXPECT_TRUE(window.control<QWidget>("tbToolbar").isVisible());
    EXPECT_FALSE(window.control<QWidget>("Picture1").isVisible());
    EXPECT_EQ(window.control<QLabel>("lblFileSize").text(), QStringLiteral("File Size: 0 KB"));
    EXPECT_EQ(window.control<QLabel>("lblImageSize").text(), QStringLiteral("Image Size: 0 × 0 px"));
}

TEST_F(ImageMainTest, HasItsMenus)
{
    QStringList captions;
    for (const QMenu *menu : window.form().menus())
        captions << menu->title();
    EXPECT_EQ(captions.join(u' '), QStringLiteral("&File &Edit &View &Size &Window &About"));
    const std::pair<const char *, const char *> items[] = {
        {"mnuFileOpen", "&Open…"},
        {"mnuFileSaveAs", "&Save As…"},
        {"mnuFileProperties", "Proper&ties"},
        {"mnuFilePrint", "&Print…"},
        {"mnuFileQuit", "&Close Quill-Image"},
        {"mnuNewQuillWord", "New Quill &Word Document"},
        {"mnuexittools", "E&xit Quill Office Tools"},
        {"mnuEditCopy", "&Copy"},
        {"mnuEditPaste", "&Paste"},
        {"mnuViewToolbar", "&Toolbar"},
        {"mnuViewSizeAndInfo", "&Size Toolbar"},
        {"mnuViewPan", "&Pan"},
        {"mnuViewSize", "&Size"},
        {"mnuViewSizeInPixels", "In Pixels…"},
        {"mnuViewSizeInInches", "In Inches…"},
        {"mnuViewSizeInMM", "In Millimetres…"},
        {"mnuViewSizeInTwips", "In Twips…"},
        {"mnuSizeZoomIn", "Zoom &In"},
        {"mnuSizeZoomOut", "Zoom &Out"},
        {"mnuSizeActualPixels", "&Original Size"},
        {"mnuSizeFittoScreen", "Fit to Screen"},
        {"mnuSizeFittoWindow", "Fit to Window"},
        {"mnuSizeFittoPage", "Fit to Page"},
        {"mnuSizeFitPageL", "Landscape"},
        {"mnuSizeFitPageP", "Portrait"},
        {"mnuSizeSplit", "&Split"},
        {"mnuSizeSplitHeight", "&Height"},
        {"mnuSizeSplitWidth", "&Width"},
        {"mnuSizeDouble", "&Double"},
        {"mnuSizeDoubleHeight", "&Height"},
        {"mnuSizeDoubleWidth", "&Width"},
        {"mnusizeratio", "&Ratio"},
        {"mnuSizeMakeSquare", "Make Square from"},
        {"mnuSizeMakeSquareWidth", "Width"},
        {"mnuSizeMakeSquareHeight", "Height"},
        {"mnuSizeMakeSquareAverage", "Median"},
        {"mnuSizeScale", "Scale…"},
        {"About", "&About"},
    };
    for (const auto &[name, caption] : items)
        EXPECT_EQ(window.item(name).text(), QString::fromUtf8(caption)) << name;
}

TEST_F(ImageMainTest, ItsMenusCallTheFrame)
{
    for (const char *item : {"mnuNewQuillWord", "mnuCascade", "mnuTileHorizontal", "mnuTileVertical",
                             "mnuArrangeIcons", "mnuexittools"})
        window.choose(item);
    EXPECT_EQ(window.frame.calls().join(u','),
              QStringLiteral("LoadNewDoc,Arrange 0,Arrange 1,Arrange 2,Arrange 3,mnuFileExit_Click"));
    window.choose("mnuFileQuit");
    QCoreApplication::processEvents();
    EXPECT_FALSE(window.isOpen());
}

TEST_F(ImageMainTest, EachKeyOfTheToolbarHasAnIconAndRunsAnItem)
{
    const std::pair<const char *, const char *> keys[] = {
        {"Open", "mnuFileOpen"},
        {"Save", "mnuFileSaveAs"},
        {"Properties", "mnuFileProperties"},
        {"Print", "mnuFilePrint"},
        {"Copy", "mnuEditCopy"},
        {"Paste", "mnuEditPaste"},
        {"Zoom In", "mnuSizeZoomIn"},
        {"Zoom Out", "mnuSizeZoomOut"},
        {"Normal", "mnuSizeActualPixels"},
        {"ScaletoForm", "mnuSizeFittoWindow"},
        {"Scale", "mnuSizeScale"},
        {"SizeInPixels", "mnuViewSizeInPixels"},
    };
    for (const auto &[key, name] : keys) {
        QAction &item = window.item(name);
        item.disconnect(&window.form());
        int runs = 0;
        QObject::connect(&item, &QAction::triggered, &window.form(), [&runs] { ++runs; });
        auto &button = window.control<QToolButton>(key);
        button.click();
        EXPECT_EQ(runs, 1) << key;
        EXPECT_FALSE(button.icon().isNull()) << key;
        EXPECT_FALSE(button.toolTip().isEmpty()) << key;
    }
}

TEST_F(ImageMainTest, AboutSaysTheVersion)
{
    window.frame.dialogs.expectWindow<frmImageAbout>(
        QStringLiteral("frmImageAbout"), [](frmImageAbout &about) {
            EXPECT_EQ(about.Caption(), QStringLiteral("About-Quill ImageViewer"));
            EXPECT_EQ(about.member<QLabel>(QStringLiteral("lblVersion")).text(), QStringLiteral("2.0.1"));
            QTest::keyClick(&about, Qt::Key_Escape);
        });
    window.choose("About");
    window.frame.dialogs.expectWindow<frmImageAbout>(
        QStringLiteral("frmImageAbout"),
        [](frmImageAbout &about) { about.member<QPushButton>(QStringLiteral("cmdClose")).click(); });
    window.choose("About");
}

// ---- Opening

TEST_F(ImageMainTest, OpensAPicture)
{
    window.frame.dialogs.expectFileDialog(QStringLiteral("Open"))
        .filters({QStringLiteral(
                      "Supported Picture Files (*.gif, *.jpg, *.tga, *.bmp, *.dib, *.wmf, *.ico, *.cur)"),
                  QStringLiteral("All files (*.*)")})
        .accept(window.addPicture("a picture.bmp", 400, 300));
    window.choose("mnuFileOpen");
    EXPECT_EQ(window.form().Caption(), QStringLiteral("a picture.bmp - Quill ImageViewer"));
    EXPECT_EQ(window.size(), (ImageSize{6000, 4500}));
    EXPECT_FALSE(window.picture().Stretch());
    EXPECT_EQ(window.window(), (ImageSize{6120, 5235})); // to the pixel
    EXPECT_EQ(window.place(), (ImagePlace{4, -2.5F}));
    EXPECT_EQ(window.picture().Picture().pixelColor(0, 0), QColor(Qt::red));
}

TEST_F(ImageMainTest, ASmallPictureGetsTheSmallestWindow)
{
    window.openPicture(100, 80);
    EXPECT_EQ(window.window(), (ImageSize{290 * 15, 270 * 15}));
}

TEST_F(ImageMainTest, APictureWiderThanTheScreenMaximisesTheWindow)
{
    window.openPicture(1100, 100);
    EXPECT_TRUE(window.isMaximized());
    EXPECT_GT(window.place().left, 0);
    EXPECT_EQ(window.place().left, (1100 * 15 - window.window().width + 112) / 2);
    EXPECT_EQ(window.size().width, 1100 * 15);
}

TEST_F(ImageMainTest, AClickOnTheStartPictureOpens)
{
    window.frame.dialogs.expectFileDialog(QStringLiteral("Open"))
        .accept(window.addPicture("picture.bmp", 9, 9));
    clickPicture();
    EXPECT_TRUE(isPictureShown());
    clickPicture(); // opens nothing more
}

TEST_F(ImageMainTest, AfterACancelAClickOpensNoDialogMore)
{
    window.frame.dialogs.expectFileDialog(QStringLiteral("Open")).cancel();
    window.choose("mnuFileOpen");
    clickPicture();
    EXPECT_EQ(window.frame.dialogs.seen().size(), 1);
    EXPECT_EQ(window.form().Caption(), QStringLiteral("Quill-ImageViewer"));
}

TEST_F(ImageMainTest, ACancelLeavesWhatIsShown)
{
    window.openPicture(40, 30);
    const QImage shown = window.picture().Picture();
    window.frame.dialogs.expectFileDialog(QStringLiteral("Open"))
        .suggests(QStringLiteral("picture.bmp"))
        .cancel();
    window.choose("mnuFileOpen");
    EXPECT_EQ(window.picture().Picture(), shown);
    EXPECT_TRUE(isPictureShown());
    EXPECT_EQ(window.form().FileDialog().FileName, window.path("picture.bmp"));
    clickPicture();
    EXPECT_EQ(window.frame.dialogs.seen().size(), 2);
}

TEST_F(ImageMainTest, InPanModeAClickOpensNoDialog)
{
    window.choose("mnuViewPan");
    clickPicture();
    EXPECT_TRUE(window.frame.dialogs.seen().isEmpty());
    window.choose("mnuViewPan");
    window.frame.dialogs.expectFileDialog(QStringLiteral("Open")).cancel();
    clickPicture();
}

TEST_F(ImageMainTest, WhatIsNoPictureIsReportedAndLeavesTheOldOne)
{
    window.openPicture(40, 30);
    window.scratch.addFile("text.bmp", "no picture");
    openInvalid("text.bmp");
    EXPECT_EQ(window.size(), (ImageSize{600, 450}));
    EXPECT_TRUE(isPictureShown());
}

TEST_F(ImageMainTest, AnotherFormatUnderAKnownNameIsNoPicture)
{
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(Qt::red);
    for (const char *format : {"png", "xpm", "ppm"}) {
        ASSERT_TRUE(image.save(window.path("a.jpg"), format));
        openInvalid("a.jpg");
    }
}

TEST_F(ImageMainTest, OpeningEndsPanMode)
{
    window.choose("mnuViewPan");
    window.openPicture(40, 30);
    EXPECT_FALSE(window.isChecked("mnuViewPan"));
    EXPECT_FALSE(window.form().Geometry().PanMode());
}

TEST_F(ImageMainTest, AFailedOpeningLeavesPanMode)
{
    window.choose("mnuViewPan");
    window.scratch.addFile("text.bmp", "no picture");
    openInvalid("text.bmp");
    EXPECT_TRUE(window.form().Geometry().PanMode());
}

TEST_F(ImageMainTest, ADroppedFileOpens)
{
    window.addPicture("picture.bmp", 40, 30);
    EXPECT_TRUE(dropFiles(window.form(), {window.scratch.file("picture.bmp")}));
    EXPECT_TRUE(isPictureShown());
    EXPECT_EQ(window.size(), (ImageSize{600, 450}));
    clickPicture();
    EXPECT_TRUE(window.frame.dialogs.seen().isEmpty());
}

TEST_F(ImageMainTest, ADroppedFileThatIsNoPictureIsReported)
{
    window.scratch.addFile("text", "no picture");
    expectInvalid();
    EXPECT_TRUE(dropFiles(window.form(), {window.scratch.file("text")}));
}

TEST_F(ImageMainTest, APictureThatIsRemovedOrReplacedStaysOnShow)
{
    window.openPicture(40, 30);
    window.addPicture("picture.bmp", 10, 10, Qt::blue);
    window.picture().repaint();
    EXPECT_EQ(window.picture().Picture().size(), QSize(40, 30));
    ASSERT_TRUE(QFile::remove(window.path("picture.bmp")));
    window.picture().repaint();
    EXPECT_EQ(window.picture().Picture().size(), QSize(40, 30));
    save(window.path("saved.bmp"));
    EXPECT_EQ(saved(window.path("saved.bmp")).size(), QSize(40, 30));
}

TEST_P(HostileImageTest, AnyNameIsOpenedAndShownAsText)
{
    ImageWindow window;
    window.open();
    const QByteArray name = GetParam().bytes + ".bmp";
    window.addPicture("picture.bmp", 40, 30);
    ASSERT_EQ(::rename(window.scratch.file("picture.bmp").constData(), window.scratch.file(name).constData()),
              0);
    EXPECT_TRUE(dropFiles(window.form(), {window.scratch.file(name)}));
    EXPECT_EQ(window.size(), (ImageSize{600, 450}));
    EXPECT_EQ(window.form().Caption(),
              ShownText::line(FileNames::fromBytes(name)) + QStringLiteral(" - Quill ImageViewer"));
}

INSTANTIATE_TEST_SUITE_P(Names, HostileImageTest, testing::ValuesIn(HostileNames::files()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);

// ---- Saving

TEST_F(ImageMainTest, SavesThePictureAtItsOwnSize)
{
    window.openPicture(40, 30);
    window.choose("mnuSizeZoomIn");
    window.choose("mnuSizeDoubleWidth");
    save(window.path("saved.txt"));
    const QImage image(window.path("saved.txt"), "bmp");
    EXPECT_EQ(image.size(), QSize(40, 30));
    EXPECT_EQ(image.pixelColor(20, 20), QColor(Qt::red));
}

TEST_F(ImageMainTest, ACancelledSaveIsSilent)
{
    window.frame.dialogs.expectFileDialog(QStringLiteral("Save")).cancel();
    window.choose("mnuFileSaveAs");
}

TEST_F(ImageMainTest, SavesOntoThePictureItself)
{
    window.openPicture(40, 30);
    window.scratch.addLink("link.bmp", "picture.bmp");
    for (const char *name : {"picture.bmp", "link.bmp"}) {
        window.frame.dialogs.expectFileDialog(QStringLiteral("Save")).accept(window.path(name));
        expectReplacing(QString::fromLatin1(name));
        window.choose("mnuFileSaveAs");
        EXPECT_EQ(saved(window.path("picture.bmp")).size(), QSize(40, 30)) << name;
    }
    EXPECT_TRUE(QFileInfo(window.path("link.bmp")).isSymLink());
}

TEST_F(ImageMainTest, AFullDiskLeavesTheOldFile)
{
    window.openPicture(40, 30);
    window.frame.dialogs.expectFileDialog(QStringLiteral("Save")).accept(window.path("picture.bmp"));
    expectReplacing(QStringLiteral("picture.bmp"));
    expectError(QStringLiteral("System Error!"),
                QStringLiteral("An error has occurred - Code: 61 Description: Disk full"));
    {
        const FullDisk full(1000);
        window.choose("mnuFileSaveAs");
    }
    EXPECT_EQ(saved(window.path("picture.bmp")).size(), QSize(40, 30));
}

TEST_F(ImageMainTest, SavingOverADeviceIsReported)
{
    ASSERT_EQ(::mkfifo(window.scratch.file("pipe.bmp").constData(), 0600), 0);
    window.frame.dialogs.expectFileDialog(QStringLiteral("Save")).accept(window.path("pipe.bmp"));
    expectReplacing(QStringLiteral("pipe.bmp"));
    expectError(QStringLiteral("System Error!"),
                QStringLiteral("An error has occurred - Code: 75 Description: Path/File access error"));
    window.choose("mnuFileSaveAs");
}

// ---- Sizes in units

TEST_F(ImageMainTest, TellsTheRectanglesSizeInUnits)
{
    window.openPicture(101, 30);
    window.choose("mnuSizeSplitWidth");
    const std::pair<const char *, const char *> units[] = {
        {"mnuViewSizeInPixels", "Image Width: 50.5\nImage Height: 30"},
        {"mnuViewSizeInInches", "Image Width: .5260417\nImage Height: .3125"},
        {"mnuViewSizeInMM", "Image Width: 13.36146\nImage Height: 7.9375"},
        {"mnuViewSizeInTwips", "Image Width: 757.5\nImage Height: 450"},
    };
    for (const auto &[item, text] : units) {
        window.frame.dialogs.expectBox(QStringLiteral("Image Attributes"), QString::fromLatin1(text))
            .icon(QMessageBox::Information);
        window.choose(item);
    }
}
