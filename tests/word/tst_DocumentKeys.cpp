#include "Files.h"
#include "FindFlag.h"
#include "Forms.h"
#include "Globals.h"
#include "Paths.h"
#include "PrintQt.h"
#include "RunningSuite.h"
#include "Toolbar.h"
#include "clsFindandReplace.h"
#include "dlgFindReplace.h"

#include <QDir>
#include <QMdiSubWindow>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct DocumentKeysTest : testing::Test
{
    RunningSuite suite;

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers) const
    {
        QTest::keyClick(&suite.text(), key, modifiers);
    }
    clsFindandReplace &find() const
    {
        return *suite.active().findChild<clsFindandReplace *>(QStringLiteral("FindDialog"));
    }
    void write(const char *text) const
    {
        suite.text().setText(QString::fromUtf8(text));
        suite.active().call(QStringLiteral("doclengthupdate"));
    }
    void search(const char *text, int flags) const
    {
        find().Messages_WMArrival({flags | FindFlag::FindNext, QString::fromUtf8(text), {}});
    }
    int caret() const { return suite.text().SelStart(); }
};

} // namespace

TEST_F(DocumentKeysTest, CtrlSSavesAsTheToolbarDoes)
{
    const QString path = suite.home.file(QStringLiteral("letter.txt"));
    Files::write(path, "old");
    suite.dialogs.expectFileDialog(QStringLiteral("Open")).accept(path);
    suite.choose("mnuFileOpen");
    suite.type(QStringLiteral("new "));
    suite.frame().activateWindow(); // a window manager does so when the dialog closes
    ASSERT_TRUE(QTest::qWaitFor([&] { return suite.text().hasFocus(); }));
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Files::read(path), "new old");
    EXPECT_FALSE(suite.active().isWindowModified());
}

TEST_F(DocumentKeysTest, CtrlSSaysWhyItCouldNotSaveAndTheDocumentStaysChanged)
{
    const QString folder = suite.home.file(QStringLiteral("gone"));
    const QString path = folder + QStringLiteral("/letter.txt");
    ASSERT_TRUE(QDir().mkpath(folder));
    Files::write(path, "old");
    suite.dialogs.expectFileDialog(QStringLiteral("Open")).accept(path);
    suite.choose("mnuFileOpen");
    suite.frame().activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return suite.text().hasFocus(); }));
    freshDocument = false;
    suite.type(QStringLiteral("new "));
    ASSERT_TRUE(QDir(folder).removeRecursively());
    suite.dialogs.expectBox(QStringLiteral("System Error!"),
                            QStringLiteral("An error has occurred - Code: 76 Description: Path not found"));
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(suite.active().isWindowModified());
    EXPECT_EQ(suite.text().Text(), QStringLiteral("new old"));
}

TEST_F(DocumentKeysTest, CtrlPAsksForThePrinterOfTheWholeText)
{
    write("one two");
    suite.text().setSelLength(3);
    suite.dialogs.expectWindow<QDialog>(QStringLiteral("PrintDialog"),
                                        [](QDialog &dialog) { dialog.reject(); });
    key(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(suite.text().SelLength(), 0);
}

TEST_F(DocumentKeysTest, CtrlBAndCtrlUChangeTheSelectionsLook)
{
    write("one two");
    suite.text().setSelLength(3);
    key(Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(suite.text().SelBold(), true);
    key(Qt::Key_U, Qt::ControlModifier);
    EXPECT_EQ(suite.text().SelUnderline(), true);
    EXPECT_EQ(suite.text().Text(), QStringLiteral("one two"));
}

TEST_F(DocumentKeysTest, CtrlYAndCtrlShiftZRestoreWhatWasUndone)
{
    for (const QKeyCombination keys : {Qt::CTRL | Qt::Key_Y, Qt::CTRL | Qt::SHIFT | Qt::Key_Z}) {
        write("");
        suite.type(QStringLiteral("word"));
        suite.choose("mnuEditUndo");
        ASSERT_EQ(suite.text().Text(), QString());
        key(keys.key(), keys.keyboardModifiers());
        EXPECT_EQ(suite.text().Text(), QStringLiteral("word"));
    }
}

TEST_F(DocumentKeysTest, F3RepeatsTheLastSearchWithoutTheDialog)
{
    write("one two one three One");
    find().ShowReplace(suite.text());
    search("one", FindFlag::Down | FindFlag::MatchCase);
    find().Terminate();
    ASSERT_EQ(caret(), 8);
    key(Qt::Key_F3, Qt::NoModifier);
    EXPECT_EQ(caret(), 0);
    EXPECT_EQ(suite.text().SelText(), QStringLiteral("one"));
    key(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(caret(), 8);
    key(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(caret(), 0);
    EXPECT_FALSE(find().hWndDialog());
}

TEST_F(DocumentKeysTest, F3SearchesTheTextAsItIsNow)
{
    write("one two");
    find().ShowReplace(suite.text());
    search("two", FindFlag::Down);
    find().Terminate();
    suite.text().setText(QStringLiteral("a longer text with two words"));
    key(Qt::Key_F3, Qt::NoModifier);
    EXPECT_EQ(caret(), 19);
}

TEST_F(DocumentKeysTest, F3BesideTheOpenDialogSearchesTheTextAsItIsNow)
{
    write("one two");
    find().ShowReplace(suite.text());
    search("two", FindFlag::Down);
    suite.text().setText(QStringLiteral("a longer text with two words"));
    key(Qt::Key_F3, Qt::NoModifier);
    EXPECT_EQ(suite.text().SelText(), QStringLiteral("two"));
    EXPECT_TRUE(find().hWndDialog());
}

TEST_F(DocumentKeysTest, CtrlYLeavesALockedTextAsItIs)
{
    suite.type(QStringLiteral("word"));
    suite.choose("mnuEditUndo");
    suite.text().setLocked(true);
    key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(suite.text().Text(), QString());
}

TEST_F(DocumentKeysTest, F3SaysWhenThereIsNothing)
{
    write("one two");
    find().ShowReplace(suite.text());
    search("two", FindFlag::Down);
    find().Terminate();
    suite.text().setText(QStringLiteral("nothing of it"));
    suite.dialogs.expectBox(Paths::applicationTitle, QStringLiteral("Search Complete."));
    key(Qt::Key_F3, Qt::NoModifier);
}

TEST_F(DocumentKeysTest, F3BeforeTheFirstSearchOpensTheDialog)
{
    write("one two");
    key(Qt::Key_F3, Qt::NoModifier);
    EXPECT_TRUE(find().hWndDialog());
}

TEST_F(DocumentKeysTest, TheTitleBarMarksUnsavedChangesAndTheCaptionStays)
{
    write("one two");
    const auto title = [&] { return suite.active().parentWidget()->windowTitle(); };
    EXPECT_EQ(title(), QStringLiteral("Document 1"));
    suite.type(QStringLiteral("word"));
    EXPECT_EQ(title(), QStringLiteral("Document 1*"));
    EXPECT_EQ(suite.active().Caption(), QStringLiteral("Document 1"));
    suite.active().setCaption(QStringLiteral("letter"));
    EXPECT_EQ(title(), QStringLiteral("letter*"));
    suite.active().call(QStringLiteral("doclengthupdate"));
    EXPECT_EQ(title(), QStringLiteral("letter"));
}
