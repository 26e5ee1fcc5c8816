#include "FontDialog.h"
#include "Globals.h"
#include "RunningSuite.h"
#include "Toolbar.h"
#include "frmMargins.h"

#include <QClipboard>
#include <QColorDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

struct Formatting : testing::Test
{
    RunningSuite suite;
    RichTextBox &text = suite.text();

    void select(int start, int length) const
    {
        text.setSelStart(start);
        text.setSelLength(length);
        QCoreApplication::processEvents();
    }
    bool pressed(const char *key) const
    {
        return suite.frame().tbToolBar().isPressed(QString::fromLatin1(key));
    }
    /// A text whose characters 0 to 2 are bold.
    void partBold() const
    {
        text.setText(QStringLiteral("abcdef"));
        select(0, 3);
        suite.press("Bold");
    }
    void pressOften(const char *key, int times) const
    {
        for (int i = 0; i < times; ++i)
            suite.press(key);
    }
    void expectMargins(std::function<void(frmMargins &)> act)
    {
        suite.dialogs.expectWindow<frmMargins>(QStringLiteral("frmMargins"), std::move(act));
    }
};

QLineEdit &margin(frmMargins &window, int side)
{
    return window.member<QLineEdit>(QStringLiteral("Text1_%1").arg(side));
}

void click(frmMargins &window, const char *button)
{
    QTest::mouseClick(&window.member<QWidget>(QString::fromLatin1(button)), Qt::LeftButton);
}

void setMargins(frmMargins &window, const char *left, const char *right)
{
    margin(window, 0).setText(QString::fromLatin1(left));
    margin(window, 1).setText(QString::fromLatin1(right));
}

} // namespace

// ---- Character styles

TEST_F(Formatting, AButtonInvertsTheStyleAndShowsIt)
{
    text.setText(QStringLiteral("abc"));
    select(0, 3);
    suite.press("Bold");
    EXPECT_EQ(text.SelBold(), true);
    EXPECT_TRUE(pressed("Bold"));
    suite.press("Bold");
    EXPECT_EQ(text.SelBold(), false);
    EXPECT_FALSE(pressed("Bold"));
    suite.press("Italic");
    suite.press("Underline");
    EXPECT_EQ(text.SelItalic(), true);
    EXPECT_EQ(text.SelUnderline(), true);
    EXPECT_TRUE(pressed("Italic"));
    EXPECT_TRUE(pressed("Underline"));
}

TEST_F(Formatting, AMixedSelectionShowsReleasedAndBecomesBold)
{
    partBold();
    select(0, 6);
    EXPECT_EQ(text.SelBold(), std::nullopt);
    EXPECT_FALSE(pressed("Bold"));
    suite.press("Bold");
    EXPECT_EQ(text.SelBold(), true);
    EXPECT_TRUE(pressed("Bold"));
}

TEST_F(Formatting, AStyleAtTheCaretIsForWhatIsTypedNext)
{
    suite.type(QStringLiteral("a"));
    suite.press("Italic");
    suite.type(QStringLiteral("b"));
    select(0, 1);
    EXPECT_EQ(text.SelItalic(), false);
    select(1, 1);
    EXPECT_EQ(text.SelItalic(), true);
}

TEST_F(Formatting, TheButtonsFollowTheCaret)
{
    partBold();
    select(5, 0);
    EXPECT_FALSE(pressed("Bold"));
    QTest::keyClick(&text, Qt::Key_Home);
    QTest::keyClick(&text, Qt::Key_Right);
    QCoreApplication::processEvents();
    EXPECT_TRUE(pressed("Bold"));
}

TEST_F(Formatting, TheButtonsFollowTheActiveDocument)
{
    partBold();
    select(1, 1);
    suite.choose("mnuFileNew");
    EXPECT_FALSE(pressed("Bold"));
    suite.choose("mnuFileClose");
    EXPECT_TRUE(pressed("Bold"));
}

TEST_F(Formatting, TheButtonsLeaveOutTheOtherDocuments)
{
    partBold();
    select(4, 1);
    suite.choose("mnuFileNew");
    select(0, 1); // in the first document, which is bold there
    EXPECT_FALSE(pressed("Bold"));
}

// ---- Alignment

TEST_F(Formatting, AlignmentsReleaseEachOther)
{
    suite.press("Center");
    EXPECT_EQ(text.SelAlignment(), 2);
    suite.press("Align Right");
    EXPECT_EQ(text.SelAlignment(), 1);
    EXPECT_TRUE(pressed("Align Right"));
    EXPECT_FALSE(pressed("Center"));
    suite.press("Align Left");
    EXPECT_EQ(text.SelAlignment(), 0);
}

TEST_F(Formatting, MixedAlignmentsShowNone)
{
    text.setSelText(QStringLiteral("a\nb"));
    suite.press("Center");
    select(0, 3);
    EXPECT_FALSE(pressed("Align Left"));
    EXPECT_FALSE(pressed("Center"));
    select(0, 0);
    EXPECT_TRUE(pressed("Align Left"));
}

// ---- Colour and font

TEST_F(Formatting, TheColourDialogStartsFromTheSelection)
{
    text.setText(QStringLiteral("abc"));
    select(0, 3);
    text.setSelColor(Qt::red);
    suite.dialogs.expectWindow<QColorDialog>(QStringLiteral("ColorDialog"), [](QColorDialog &dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Colour Picker"));
        EXPECT_EQ(dialog.currentColor(), QColor(Qt::red));
        dialog.setCurrentColor(Qt::blue);
        dialog.accept();
    });
    suite.press("Font Colour");
    EXPECT_EQ(suite.frame().dlgCommonDialog().Flags, 3);
    EXPECT_EQ(text.SelColor(), QColor(Qt::blue));
}

TEST_F(Formatting, ACancelledColourIsWrittenBack)
{
    text.setText(QStringLiteral("abc"));
    select(0, 1);
    text.setSelColor(Qt::red);
    for (int round = 0; round < 2; ++round) {
        suite.dialogs.expectWindow<QColorDialog>(QStringLiteral("ColorDialog"),
                                                 [](QColorDialog &dialog) { dialog.reject(); });
    }
    suite.press("Font Colour");
    EXPECT_EQ(text.SelColor(), QColor(Qt::red));
    select(0, 3);
    EXPECT_EQ(text.SelColor(), std::nullopt);
    suite.press("Font Colour");
    EXPECT_EQ(text.SelColor(), QColor(Qt::red)); // what the dialog held from before
}

TEST_F(Formatting, TheFontDialogGivesAllSeven)
{
    text.setText(QStringLiteral("abc"));
    select(0, 3);
    text.setSelBold(true);
    text.setSelFontSize(14);
    suite.dialogs.expectWindow<FontDialog>(QStringLiteral("FontDialog"), [](FontDialog &dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Font Chooser"));
        EXPECT_TRUE(dialog.currentFont().bold());
        EXPECT_EQ(dialog.currentFont().pointSizeF(), 14);
        QFont font(QStringLiteral("Liberation Serif"));
        font.setPointSizeF(20);
        font.setItalic(true);
        font.setStrikeOut(true);
        font.setUnderline(true);
        dialog.setCurrentFont(font);
        dialog.accept();
    });
    suite.press("Font");
    EXPECT_EQ(suite.frame().dlgCommonDialog().Flags, 164099);
    EXPECT_EQ(text.SelFontName(), QStringLiteral("Liberation Serif"));
    EXPECT_EQ(text.SelFontSize(), 20);
    EXPECT_EQ(text.SelBold(), false);
    EXPECT_EQ(text.SelItalic(), true);
    EXPECT_EQ(text.SelStrikeThru(), true);
    EXPECT_EQ(text.SelUnderline(), true);
    EXPECT_EQ(text.SelColor(), QColor(Qt::black));
    text.undo(); // one step
    EXPECT_EQ(text.SelBold(), true);
    EXPECT_EQ(text.SelFontSize(), 14);
}

TEST_F(Formatting, TheFontDialogHasTheColour)
{
    text.setText(QStringLiteral("abc"));
    select(0, 3);
    suite.dialogs.expectWindow<FontDialog>(QStringLiteral("FontDialog"), [](FontDialog &dialog) {
        dialog.findChild<QPushButton *>(QStringLiteral("cmdColor"))->click();
        dialog.accept();
    });
    suite.dialogs.expectWindow<QColorDialog>(QStringLiteral("ColorDialog"), [](QColorDialog &dialog) {
        dialog.setCurrentColor(Qt::darkGreen);
        dialog.accept();
    });
    suite.press("Font");
    EXPECT_EQ(text.SelColor(), QColor(Qt::darkGreen));
}

TEST_F(Formatting, ACancelledFontMakesAMixedSelectionUniform)
{
    partBold();
    select(0, 6);
    suite.dialogs.expectWindow<FontDialog>(QStringLiteral("FontDialog"),
                                           [](FontDialog &dialog) { dialog.reject(); });
    suite.press("Font");
    EXPECT_EQ(text.SelBold(), false);
}

// ---- Bullets and indents

TEST_F(Formatting, TheBulletButtonInverts)
{
    text.setSelText(QStringLiteral("a\nb"));
    suite.press("bullet");
    EXPECT_EQ(text.SelBullet(), true);
    EXPECT_TRUE(pressed("bullet"));
    select(0, 3);
    EXPECT_EQ(text.SelBullet(), std::nullopt);
    EXPECT_FALSE(pressed("bullet"));
    suite.press("bullet"); // a mixed state is cleared
    EXPECT_EQ(text.SelBullet(), false);
    suite.press("bullet");
    EXPECT_EQ(text.SelBullet(), true);
}

TEST_F(Formatting, TenIndentsReachFiftyAndTheEleventhDoesNothing)
{
    pressOften("indent", 10);
    EXPECT_EQ(text.BulletIndent(), 50);
    suite.press("indent");
    EXPECT_EQ(text.BulletIndent(), 50);
    pressOften("removeindent", 11);
    EXPECT_EQ(text.BulletIndent(), 0);
}

TEST_F(Formatting, ABulletStaysThroughAnIndentAndNoneComes)
{
    suite.type(QStringLiteral("a"));
    suite.press("indent");
    EXPECT_EQ(text.SelBullet(), false);
    suite.press("bullet");
    suite.press("indent");
    EXPECT_EQ(text.SelBullet(), true);
    EXPECT_EQ(text.BulletIndent(), 10);
    EXPECT_FALSE(pressed("indent"));
}

TEST_F(Formatting, AnIndentBelowFiveIsSetToZeroAndNoFurther)
{
    text.setBulletIndent(3);
    suite.press("bullet");
    suite.press("removeindent");
    EXPECT_EQ(text.BulletIndent(), 0);
    EXPECT_EQ(text.SelBullet(), true); // it ends before the toggles
}

TEST_F(Formatting, IndentsKeepANumber)
{
    text.setText(QStringLiteral("one\ntwo"));
    select(0, 7);
    text.textCursor().createList(QTextListFormat::ListDecimal);
    const QByteArray numbered = text.TextRTF();
    suite.press("indent");
    suite.press("indent");
    suite.press("removeindent");
    EXPECT_EQ(text.BulletIndent(), 5);
    EXPECT_EQ(text.TextRTF(), numbered);
}

TEST_F(Formatting, IndentsKeepTheFirstLineOfAPlainParagraph)
{
    text.setTextRTF("{\\rtf1\\pard\\fi-360\\li720 hanging\\par}");
    const QByteArray hanging = text.TextRTF();
    suite.press("indent");
    suite.press("removeindent");
    EXPECT_EQ(text.TextRTF(), hanging);
}

TEST_F(Formatting, AnIndentIsOneUndoStep)
{
    text.setText(QStringLiteral("one\ntwo"));
    select(0, 7);
    suite.press("bullet");
    const QByteArray bulleted = text.TextRTF();
    suite.press("indent");
    EXPECT_NE(text.TextRTF(), bulleted);
    suite.press("undo");
    EXPECT_EQ(text.TextRTF(), bulleted);
    suite.press("undo");
    EXPECT_EQ(text.SelBullet(), false);
}

TEST_F(Formatting, AnIndentGivesAllOfAMixedSelectionBulletsButTheNumberedOnes)
{
    text.setText(QStringLiteral("one\ntwo\nthree"));
    select(0, 0);
    suite.press("bullet");
    select(9, 0);
    text.textCursor().createList(QTextListFormat::ListDecimal);
    select(0, 13);
    suite.press("indent");
    select(0, 7);
    EXPECT_EQ(text.SelBullet(), true);
    select(9, 0);
    EXPECT_EQ(text.SelBullet(), false);
    EXPECT_NE(text.textCursor().currentList(), nullptr);
}

// ---- Margins

TEST_F(Formatting, MarginsStartFromTheSelectionAndReachTheParagraph)
{
    text.setText(QStringLiteral("one\ntwo"));
    text.setSelIndent(30);
    text.setSelRightIndent(7);
    expectMargins([](frmMargins &window) {
        EXPECT_EQ(window.Caption(), QStringLiteral("Set Page Margins"));
        EXPECT_EQ(margin(window, 0).text(), QStringLiteral("30"));
        EXPECT_EQ(margin(window, 1).text(), QStringLiteral("7"));
        EXPECT_TRUE(window.member<QRadioButton>(QStringLiteral("Option1_0")).isChecked());
        setMargins(window, "100", "200");
        click(window, "OKButton");
    });
    suite.press("pageformat");
    EXPECT_EQ(text.SelIndent(), 100);
    EXPECT_EQ(text.SelRightIndent(), 200);
    text.setSelStart(5);
    EXPECT_EQ(text.SelIndent(), 0);
}

TEST_F(Formatting, ReturnOnCancelLeavesTheMargins)
{
    text.setText(QStringLiteral("one"));
    expectMargins([](frmMargins &window) {
        setMargins(window, "100", "200");
        window.member<QPushButton>(QStringLiteral("CancelButton")).setFocus();
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        EXPECT_FALSE(window.isVisible());
    });
    suite.press("pageformat");
    EXPECT_EQ(text.SelIndent(), 0);
    EXPECT_EQ(text.SelRightIndent(), 0);
}

TEST_F(Formatting, TheWholeDocumentEndsSelectedFromPositionOne)
{
    text.setText(QStringLiteral("one\ntwo\nthree"));
    select(5, 0);
    expectMargins([](frmMargins &window) {
        setMargins(window, "40", "50");
        click(window, "Label1_1");
        EXPECT_TRUE(window.member<QRadioButton>(QStringLiteral("Option1_1")).isChecked());
        EXPECT_FALSE(window.member<QRadioButton>(QStringLiteral("Option1_0")).isChecked());
        click(window, "OKButton");
    });
    suite.press("pageformat");
    EXPECT_EQ(text.SelStart(), 1);
    EXPECT_EQ(text.SelLength(), 12);
    EXPECT_EQ(text.SelIndent(), 40);
    EXPECT_EQ(text.SelRightIndent(), 50);
}

TEST_F(Formatting, TheSpinButtonsStopAtSeventyFive)
{
    expectMargins([](frmMargins &window) {
        const QList<QToolButton *> spins =
            window.member<QWidget>(QStringLiteral("UpDown1_0")).findChildren<QToolButton *>();
        ASSERT_EQ(spins.size(), 2);
        setMargins(window, "74", "0");
        spins[0]->click();
        EXPECT_EQ(margin(window, 0).text(), QStringLiteral("75"));
        spins[0]->click();
        EXPECT_EQ(margin(window, 0).text(), QStringLiteral("75"));
        spins[1]->click();
        EXPECT_EQ(margin(window, 0).text(), QStringLiteral("74"));
        QTest::keyClick(&margin(window, 1), Qt::Key_Up);
        QTest::keyClick(&margin(window, 1), Qt::Key_Down);
        QTest::keyClick(&margin(window, 1), Qt::Key_Down);
        EXPECT_EQ(margin(window, 1).text(), QStringLiteral("0"));
        QTest::keyClick(&window, Qt::Key_Escape);
    });
    suite.press("pageformat");
    EXPECT_EQ(text.SelIndent(), 0);
}

TEST_F(Formatting, AMarginThatIsNoNumberIsAnUntrappedError)
{
    expectMargins([this](frmMargins &window) {
        setMargins(window, "wide", "0");
        suite.fatal.expect(13);
        click(window, "OKButton");
        click(window, "CancelButton");
    });
    suite.press("pageformat");
}

TEST_F(Formatting, SeveralIndentsLeaveTheBoxesAsDesigned)
{
    text.setText(QStringLiteral("one\ntwo"));
    text.setSelIndent(30);
    select(0, 7);
    expectMargins([](frmMargins &window) {
        EXPECT_EQ(margin(window, 0).text(), QStringLiteral("0"));
        click(window, "CancelButton");
    });
    suite.press("pageformat");
}

TEST_F(Formatting, MarginsOfAFreshDocumentLeaveItClean)
{
    suite.choose("mnuFileNew");
    freshDocument = true;
    expectMargins([](frmMargins &window) { click(window, "CancelButton"); });
    suite.press("pageformat");
    EXPECT_FALSE(freshDocument);
}

// ---- Clipboard and undo

TEST_F(Formatting, PasteInsertsPlainTextTwice)
{
    QGuiApplication::clipboard()->setText(QStringLiteral("ab"));
    suite.choose("mnuEditPaste");
    EXPECT_EQ(text.Text(), QStringLiteral("abab"));
    suite.press("Paste");
    EXPECT_EQ(text.Text(), QStringLiteral("abababab"));
}

TEST_F(Formatting, CutCopyAndUndoGoToTheFocus)
{
    suite.type(QStringLiteral("word"));
    select(0, 4);
    suite.choose("mnuEditCopy");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("word"));
    QGuiApplication::clipboard()->clear();
    suite.press("Cut");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("word"));
    EXPECT_EQ(text.Text(), QString());
    suite.press("undo");
    EXPECT_EQ(text.Text(), QStringLiteral("word"));
}

TEST_F(Formatting, AnImageIsPastedAndKeptInTheFile)
{
    QImage picture(3, 2, QImage::Format_RGB32);
    picture.fill(Qt::red);
    for (const char *command : {"mnupasteimage", "mnuEditPaste"}) {
        text.setText({});
        QGuiApplication::clipboard()->setImage(picture);
        suite.choose(command);
        EXPECT_EQ(text.Text().size(), 1) << command;
        EXPECT_TRUE(text.TextRTF().contains("\\pict")) << command;
    }
}

TEST_F(Formatting, ALockedDocumentRefusesEverything)
{
    suite.choose("mnutipsandtricks");
    RichTextBox &tips = suite.text();
    tips.setSelStart(0);
    tips.setSelLength(6);
    const QByteArray before = tips.TextRTF();
    QGuiApplication::clipboard()->setText(QStringLiteral("ab"));
    for (const char *key : {"Bold", "Center", "bullet", "indent", "Paste", "Cut", "undo"})
        suite.press(key);
    EXPECT_EQ(tips.TextRTF(), before);
}

TEST_F(Formatting, TheDialogsOpenOnALockedDocumentAndLeaveItAsItIs)
{
    suite.choose("mnutipsandtricks");
    RichTextBox &tips = suite.text();
    tips.setSelStart(0);
    tips.setSelLength(6);
    const QByteArray before = tips.TextRTF();
    suite.dialogs.expectWindow<FontDialog>(QStringLiteral("FontDialog"), [&](FontDialog &dialog) {
        EXPECT_EQ(dialog.currentFont().family(), tips.SelFontName());
        dialog.setCurrentFont(QFont(QStringLiteral("Liberation Mono"), 30));
        dialog.accept();
    });
    suite.press("Font");
    suite.dialogs.expectWindow<QColorDialog>(QStringLiteral("ColorDialog"), [](QColorDialog &dialog) {
        dialog.setCurrentColor(Qt::green);
        dialog.accept();
    });
    suite.press("Font Colour");
    for (const char *extent : {"Label1_0", "Label1_1"}) {
        expectMargins([extent](frmMargins &window) {
            setMargins(window, "40", "50");
            click(window, extent);
            click(window, "OKButton");
        });
        suite.press("pageformat");
    }
    EXPECT_EQ(tips.TextRTF(), before);
    EXPECT_EQ(tips.SelStart(), 1); // as in any document
    suite.choose("mnuFileClose");  // and asks nothing
}

TEST_F(Formatting, OneUndoTakesBackOneWord)
{
    suite.type(QStringLiteral("one two"));
    suite.press("undo");
    EXPECT_EQ(text.Text(), QStringLiteral("one "));
    suite.choose("mnuEditUndo");
    EXPECT_EQ(text.Text(), QString());
}

TEST_F(Formatting, AFontThatIsNotInstalledAndAHalfSizeStay)
{
    text.setTextRTF("{\\rtf1{\\fonttbl{\\f0 Calibri Of Nowhere;}}\\f0\\fs21 abc}");
    select(0, 3);
    suite.dialogs.expectWindow<FontDialog>(QStringLiteral("FontDialog"),
                                           [](FontDialog &dialog) { dialog.accept(); });
    suite.press("Font");
    EXPECT_EQ(text.SelFontName(), QStringLiteral("Calibri Of Nowhere"));
    EXPECT_EQ(text.SelFontSize(), 10.5);
}
