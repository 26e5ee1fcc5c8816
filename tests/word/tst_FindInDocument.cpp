#include "FindWords.h"
#include "Form.h"
#include "Paths.h"
#include "RunningSuite.h"
#include "clsFindandReplace.h"
#include "dlgFindReplace.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

// Find and replace as a person meets it: in a document of the running suite.

namespace {

struct FindInDocumentTest : testing::Test
{
    RunningSuite suite;

    void ctrlF() const { QTest::keyClick(&suite.text(), Qt::Key_F, Qt::ControlModifier); }
    clsFindandReplace &find() const { return suite.active().member<clsFindandReplace>(latin("FindDialog")); }
    QPointer<dlgFindReplace> dialog() const { return find().hWndDialog(); }
    QLineEdit &field(const char *name) const { return *dialog()->findChild<QLineEdit *>(latin(name)); }
    void enter(const char *name, const char *text) const
    {
        field(name).setFocus();
        field(name).selectAll();
        QTest::keyClick(&field(name), Qt::Key_Delete);
        QTest::keyClicks(&field(name), latin(text));
    }
    void press(const char *name) const
    {
        QTest::mouseClick(dialog()->findChild<QPushButton *>(latin(name)), Qt::LeftButton);
    }
    /// Puts \a text into the active document, the caret at its start.
    void write(const char *text) const
    {
        suite.text().setText(latin(text));
        suite.active().call(latin("doclengthupdate"));
    }
    void settle() const
    {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }
};

} // namespace

TEST_F(FindInDocumentTest, CtrlFInAnEmptyDocumentOpensNothing)
{
    ctrlF();
    EXPECT_EQ(find().hWndDialog(), nullptr);
}

TEST_F(FindInDocumentTest, CtrlFOpensTheReplaceFormWithTheWordAtTheCaret)
{
    write("one two three");
    suite.text().setSelStart(5);
    ctrlF();
    ASSERT_TRUE(dialog());
    EXPECT_EQ(dialog()->windowTitle(), latin("Replace"));
    EXPECT_TRUE(dialog()->isVisible());
    EXPECT_EQ(field("txtFind").text(), latin("two"));
    EXPECT_EQ(suite.text().SelText(), latin("two"));
    EXPECT_TRUE(suite.text().hasFocus());
    EXPECT_EQ(dialog()->parentWidget(), &suite.frame());
    EXPECT_EQ(suite.frame().ActiveForm(), &suite.active());
}

TEST_F(FindInDocumentTest, ADocumentClosedWhileTheSearchIsCompleteTakesItsDialogAlong)
{
    write("one");
    ctrlF();
    const QPointer<Form> document = &suite.active();
    const QPointer<dlgFindReplace> form = dialog();
    field("txtFind").setText(latin("nowhere"));
    suite.dialogs.expectWindow<QMessageBox>(latin("MsgBox"), [&](QMessageBox &box) {
        document->unload();
        EXPECT_FALSE(form->isVisible());
        box.accept();
    });
    press("cmdFindNext");
    settle();
    EXPECT_FALSE(document);
    EXPECT_FALSE(form);
}

TEST_F(FindInDocumentTest, OtherKeysWithFOpenNothing)
{
    write("one");
    QTest::keyClick(&suite.text(), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(&suite.text(), Qt::Key_F, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(find().hWndDialog(), nullptr);
}

TEST_F(FindInDocumentTest, ASecondCtrlFOpensTheDialogAnew)
{
    write("one two");
    ctrlF();
    const QPointer<dlgFindReplace> first = dialog();
    suite.text().setSelStart(5);
    ctrlF();
    settle();
    EXPECT_TRUE(first.isNull());
    ASSERT_TRUE(dialog());
    EXPECT_EQ(field("txtFind").text(), latin("two"));
}

TEST_F(FindInDocumentTest, FindNextGoesRoundAndTellsWhenThereIsNothing)
{
    write("one two one");
    ctrlF();
    press("cmdFindNext");
    EXPECT_EQ(suite.text().SelStart(), 8);
    press("cmdFindNext");
    EXPECT_EQ(suite.text().SelStart(), 0);
    EXPECT_TRUE(suite.dialogs.seen().isEmpty());
    enter("txtFind", "three");
    suite.dialogs.expectBox(Paths::applicationTitle, latin("Search Complete.")).icon(QMessageBox::NoIcon);
    QTest::keyClick(&field("txtFind"), Qt::Key_Return);
    EXPECT_TRUE(dialog());
}

TEST_F(FindInDocumentTest, AWordThatOccursOnlyInALongerOneIsRefusedSilently)
{
    write("cats");
    ctrlF();
    enter("txtFind", "cat");
    dialog()->findChild<QCheckBox *>(latin("chkWholeWord"))->click();
    press("cmdFindNext");
    EXPECT_EQ(suite.text().SelLength(), 0);
    EXPECT_TRUE(suite.dialogs.seen().isEmpty());
}

TEST_F(FindInDocumentTest, ReplaceAllIsUndoneByOneCtrlZ)
{
    write("one two one two one");
    ctrlF();
    enter("txtReplace", "three");
    press("cmdReplaceAll");
    EXPECT_EQ(suite.text().Text(), latin("three two three two three"));
    EXPECT_TRUE(suite.text().hasFocus());
    EXPECT_TRUE(dialog());
    QTest::keyClick(&suite.text(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(suite.text().Text(), latin("one two one two one"));
}

TEST_F(FindInDocumentTest, ReplacingIsAChangeOfTheDocument)
{
    write("one one");
    ctrlF();
    enter("txtReplace", "three");
    press("cmdReplace");
    suite.dialogs.expectBox(latin("Save Changes?..."), latin("Save Changes to Document 1"))
        .press(QMessageBox::No);
    suite.choose("mnuFileClose");
}

TEST_F(FindInDocumentTest, EscapeClosesTheDialogAlone)
{
    write("one");
    ctrlF();
    const QPointer<dlgFindReplace> open = dialog();
    QTest::keyClick(&field("txtFind"), Qt::Key_Escape);
    settle();
    EXPECT_TRUE(open.isNull());
    EXPECT_TRUE(suite.frame().isVisible());
    EXPECT_NE(suite.frame().ActiveForm(), nullptr);
}

TEST_F(FindInDocumentTest, TheDialogGoesWithItsDocument)
{
    write("one");
    ctrlF();
    const QPointer<dlgFindReplace> first = dialog();
    suite.choose("mnuFileNew");
    write("two");
    ctrlF();
    const QPointer<dlgFindReplace> second = dialog();
    EXPECT_TRUE(first && second && first != second);
    suite.choose("mnuFileClose");
    EXPECT_TRUE(second.isNull());
    ASSERT_FALSE(first.isNull());
    EXPECT_EQ(dialog(), first);
    suite.choose("mnuFileClose");
    EXPECT_TRUE(first.isNull());
}

TEST_F(FindInDocumentTest, TheDialogWorksOnItsOwnDocument)
{
    write("one one");
    ctrlF();
    const QPointer<dlgFindReplace> first = dialog();
    RichTextBox &text = suite.text();
    suite.choose("mnuFileNew");
    write("one one");
    const RichTextBox &other = suite.text();
    QTest::mouseClick(first->findChild<QPushButton *>(latin("cmdFindNext")), Qt::LeftButton);
    EXPECT_EQ(text.SelStart(), 4);
    EXPECT_EQ(other.SelLength(), 0);
    EXPECT_EQ(&suite.text(), &text); // its window has come to the front with the focus
}
