#include "ChildForm.h"
#include "Forms.h"
#include "Globals.h"
#include "HelpTable.h"
#include "HelpWindow.h"
#include "PressPrint.h"
#include "PrintQt.h"
#include "PrintedPdf.h"
#include "QtMessages.h"
#include "RuntimeError.h"
#include "UrlCatcher.h"
#include "dlgFindReplace.h"

#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QPrintDialog>
#include <QStandardPaths>
#include <QTabBar>
#include <QTest>
#include <gtest/gtest.h>

namespace {

const QString menuDocument = QStringLiteral("quillofficehelpmenu.rtf");
const QString windowName = QStringLiteral("frmHelpContents");

struct HelpContentsTest : testing::Test
{
    HelpWindow help;

    bool isOpen() const { return !Forms::named(windowName).isEmpty(); }
};

struct HelpTopicTest : testing::TestWithParam<HelpTable::Row>
{
    HelpWindow help;
};

std::string topicName(const testing::TestParamInfo<HelpTable::Row> &info)
{
    return "Index" + std::to_string(info.param.index);
}

struct HelpPrintTest : HelpContentsTest
{
    HelpPrintTest()
    {
        QtMessages::expect(QStringLiteral("QPageSetupDialog: Cannot be used on non-native printers"));
        help.show(1);
    }
    void SetUp() override
    {
        if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
            GTEST_SKIP() << "pdftotext, which reads the printed pages, is not installed";
    }

    void select(int first, int length)
    {
        help.pane().setSelStart(first);
        help.pane().setSelLength(length);
    }
    void expectPrint(std::function<void(QPrintDialog &)> act)
    {
        help.suite.dialogs.expectWindow<QPrintDialog>(QStringLiteral("PrintDialog"), std::move(act));
    }
    void expectPrintToFile()
    {
        expectPrint([this](QPrintDialog &dialog) {
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Print"));
            EXPECT_FALSE(dialog.testOption(QAbstractPrintDialog::PrintSelection));
            pressPrint(dialog, file);
        });
    }

    QString file = help.suite.home.file(QStringLiteral("out.pdf"));
};

} // namespace

// ---- The window

TEST_F(HelpContentsTest, OpensOnceWithTheHelpMenu)
{
    Form &first = help.form();
    EXPECT_EQ(first.Caption(), QStringLiteral("Quill-Office Tools - Help!"));
    EXPECT_EQ(help.shown(), menuDocument);
    help.show(3);
    help.open();
    help.suite.press("helpme");
    EXPECT_EQ(Forms::named(windowName).size(), 1);
    EXPECT_EQ(&help.form(), &first);
    EXPECT_NE(help.shown(), menuDocument); // its load has not run again
}

TEST_F(HelpContentsTest, HasItsSizeInTwips)
{
    EXPECT_EQ(help.form().Height(), 7770);
    EXPECT_EQ(help.form().Width(), 11310);
}

TEST_F(HelpContentsTest, HasItsMenus)
{
    QStringList captions;
    for (const QMenu *menu : dynamic_cast<ChildForm &>(help.form()).menus()) {
        captions << menu->title();
        for (const QAction *item : menu->actions())
            captions << (item->isSeparator() ? QStringLiteral("-") : item->text());
    }
    EXPECT_EQ(
        captions.join(u'|'),
        QStringLiteral("&File|New Quill &Word Document|&Close Help|-|E&xit Quill-Office Tools|&Window|"
                       "&Cascade|Tile &Horizontal|Tile &Vertical|Arrange &Icons|Print Selected|Selected|"
                       "All This Topic"));
    help.choose("mnuNewQuillWord");
    EXPECT_EQ(help.suite.active().Caption(), QStringLiteral("Document 2"));
}

TEST_F(HelpContentsTest, ItsButtonAndItsMenuItemCloseIt)
{
    auto &cmdClose = help.form().member<QPushButton>(QStringLiteral("cmdClose"));
    EXPECT_EQ(cmdClose.text(), QStringLiteral("Close"));
    QTest::mouseClick(&cmdClose, Qt::LeftButton);
    EXPECT_FALSE(isOpen());
    help.open();
    help.choose("mnuclosehelp");
    EXPECT_FALSE(isOpen());
    help.open();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
}

TEST_F(HelpContentsTest, ThePaneTakesTheRoom)
{
    const QSize before = help.pane().size();
    help.form().setWidth(15000);
    help.form().setHeight(9000);
    QCoreApplication::processEvents();
    EXPECT_EQ(help.pane().width() - before.width(), (15000 - 11310) / 15);
    EXPECT_EQ(help.pane().height() - before.height(), (9000 - 7770) / 15);
}

TEST_F(HelpContentsTest, ItsTabsHaveTheFocusFirst)
{
    EXPECT_EQ(QApplication::focusWidget(), help.tabs().tabBar());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &help.topic(0));
}

TEST_F(HelpContentsTest, ThePaneIsBehindTheTopicsOfEachTab)
{
    for (const int last : {5, 7, 36, 38}) {
        help.show(last);
        help.topic(last).setFocus();
        QTest::keyClick(&help.topic(last), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), &help.pane()) << last;
        QTest::keyClick(&help.pane(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("cmdClose")) << last;
    }
}

// ---- Topics

TEST_P(HelpTopicTest, ItsButtonOpensItsFileInThePane)
{
    const HelpTable::Row &row = GetParam();
    help.show(row.index);
    EXPECT_EQ(help.topic(row.index).text(), QString::fromLatin1(row.caption));
    EXPECT_EQ(help.tabs().TabCaption(help.tabs().Tab()), QString::fromLatin1(row.tab));
    EXPECT_EQ(help.shown(), QString::fromLatin1(row.file));
    EXPECT_TRUE(help.pane().isVisible());
    EXPECT_TRUE(help.topic(row.index).isVisible());
}

INSTANTIATE_TEST_SUITE_P(All, HelpTopicTest, testing::ValuesIn(HelpTable::rows), topicName);

TEST_F(HelpContentsTest, TheTabsAreInTheirOrder)
{
    QStringList wanted;
    for (const HelpTable::Row &row : HelpTable::rows) {
        if (wanted.isEmpty() || wanted.constLast() != QLatin1String(row.tab))
            wanted << QString::fromLatin1(row.tab);
    }
    QStringList captions;
    for (int tab = 0; tab < help.tabs().Tabs(); ++tab)
        captions << help.tabs().TabCaption(tab);
    EXPECT_EQ(captions, wanted);
    EXPECT_EQ(help.tabs().Tab(), 0);
}

TEST_F(HelpContentsTest, AnotherTabBringsTheHelpMenuBack)
{
    help.show(0);
    ASSERT_NE(help.shown(), menuDocument);
    help.tabs().setTab(4);
    EXPECT_EQ(help.shown(), menuDocument);
    help.show(13);
    ASSERT_NE(help.shown(), menuDocument);
    QTest::keyClick(help.tabs().tabBar(), Qt::Key_Down);
    EXPECT_EQ(help.tabs().Tab(), 5);
    EXPECT_EQ(help.shown(), menuDocument);
}

TEST_F(HelpContentsTest, AClickOnTheSameTabDoesToo)
{
    help.show(2);
    ASSERT_NE(help.shown(), menuDocument);
    help.clickTab(0);
    EXPECT_EQ(help.tabs().Tab(), 0);
    EXPECT_EQ(help.shown(), menuDocument);
}

TEST_F(HelpContentsTest, WithoutTheHelpMenuItDoesNotOpen)
{
    help.form().unload();
    help.removeDocument("quillofficehelpmenu.rtf");
    help.suite.press("helpme");
    EXPECT_FALSE(isOpen());
    help.suite.fatal.expect(ErrorNumber::FileNotFound, QStringLiteral("File not found"));
    help.open();
    EXPECT_FALSE(isOpen());
}

TEST_F(HelpContentsTest, ATopicThatIsMissingEndsTheSuite)
{
    help.removeDocument("quillofficecalcuseage.rtf");
    help.suite.fatal.expect(ErrorNumber::FileNotFound, QStringLiteral("File not found"));
    help.show(7);
    EXPECT_EQ(help.shown(), menuDocument); // the pane is as before
}

TEST_F(HelpContentsTest, ATabEndsTheSuiteWhereTheHelpMenuIsMissing)
{
    help.removeDocument("quillofficehelpmenu.rtf");
    help.suite.fatal.expect(ErrorNumber::FileNotFound);
    help.tabs().setTab(1);
}

// ---- The pane

TEST_F(HelpContentsTest, ThePaneIsToBeRead)
{
    EXPECT_TRUE(help.pane().Locked());
    const QString before = help.pane().Text();
    QTest::keyClicks(&help.pane(), QStringLiteral("x"));
    EXPECT_EQ(help.pane().Text(), before);
}

TEST_F(HelpContentsTest, AWebAddressOpensInTheDesktopsProgram)
{
    const UrlCatcher urls;
    help.writeDocument(QStringLiteral("quillofficeundoing.rtf"),
                       "{\\rtf1 see www.example.org/help for more\\par}");
    help.show(5);
    QCoreApplication::processEvents();
    QTextCursor cursor(help.pane().document());
    cursor.setPosition(10);
    const QPoint place = help.pane().cursorRect(cursor).center();
    QTest::mouseMove(help.pane().viewport(), place);
    QTest::mouseClick(help.pane().viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(urls.opened(), QList<QUrl>({QUrl(QStringLiteral("http://www.example.org/help"))}));
}

TEST_F(HelpContentsTest, CtrlFSearchesItAndReplacesNothing)
{
    help.show(6);
    help.pane().setFocus();
    QTest::keyClick(&help.pane(), Qt::Key_F, Qt::ControlModifier);
    const auto *find = help.form().window()->findChild<dlgFindReplace *>();
    ASSERT_NE(find, nullptr);
    EXPECT_EQ(find->windowTitle(), QStringLiteral("Find"));
    find->findChild<QLineEdit *>(QStringLiteral("txtFind"))->setText(QStringLiteral("one"));
    QTest::mouseClick(find->findChild<QPushButton *>(QStringLiteral("cmdFindNext")), Qt::LeftButton);
    EXPECT_EQ(help.pane().SelText(), QStringLiteral("one"));
    help.form().unload();
    EXPECT_FALSE(find->isVisible());
}

TEST_F(HelpContentsTest, CtrlFSearchesItFromTheTopicsToo)
{
    help.show(6);
    help.topic(6).setFocus();
    QTest::keyClick(&help.topic(6), Qt::Key_F, Qt::ControlModifier);
    EXPECT_NE(help.form().window()->findChild<dlgFindReplace *>(), nullptr);
}

TEST_F(HelpContentsTest, F3WithoutASearchOpensTheSameDialog)
{
    help.pane().setFocus();
    QTest::keyClick(&help.pane(), Qt::Key_F3);
    const auto *find = help.form().window()->findChild<dlgFindReplace *>();
    ASSERT_NE(find, nullptr);
    EXPECT_EQ(find->windowTitle(), QStringLiteral("Find"));
}

TEST_F(HelpContentsTest, ItsPopUpMenuPrintsToo)
{
    const QPoint place(5, 5);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, help.pane().viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(help.pane().viewport(), &event);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->actions().constLast()->text(), QStringLiteral("Print Selected"));
    EXPECT_NE(menu->actions().constLast()->menu(), nullptr);
    menu->close();
}

// ---- Printing

TEST_F(HelpPrintTest, AllThisTopicDropsTheSelectionAndPrintsEverything)
{
    select(0, 4);
    expectPrintToFile();
    help.choose("printall");
    EXPECT_EQ(help.pane().SelLength(), 0);
    const PrintedPdf printed(file);
    ASSERT_EQ(printed.pages().size(), 1);
    EXPECT_EQ(printed.pages().first().simplified(),
              QStringLiteral("This is quillofficeprinting.rtf for one test"));
    EXPECT_EQ(printed.title(), QStringLiteral("This is quillofficeprinting.rtf"));
}

TEST_F(HelpPrintTest, SelectedPrintsTheSelectionAlone)
{
    select(5, 2);
    expectPrintToFile();
    help.choose("printselected");
    EXPECT_EQ(help.pane().SelText(), QStringLiteral("is"));
    EXPECT_EQ(PrintedPdf(file).pages().join(u'|').trimmed(), QStringLiteral("is"));
}

TEST_F(HelpPrintTest, WithoutASelectionABoxSaysSoAndNoDialogComes)
{
    help.suite.dialogs
        .expectBox(QStringLiteral("No text selected.."), QStringLiteral("You have not selected any text!"))
        .icon(QMessageBox::Information)
        .buttons(QMessageBox::Ok);
    help.choose("printselected");
    EXPECT_EQ(help.suite.dialogs.seen().size(), 1);
    EXPECT_EQ(lastAnswer, QStringLiteral("1"));
}

TEST_F(HelpPrintTest, ACancelShowsNoBoxAndPrintsNothing)
{
    select(0, 4);
    expectPrintToFile(); // so that there is a printer that could be printed to
    help.choose("printselected");
    ASSERT_TRUE(QFile::remove(file));
    for (const char *command : {"printselected", "printall"}) {
        expectPrint([](QPrintDialog &dialog) { dialog.reject(); });
        help.choose(command);
        EXPECT_FALSE(QFile::exists(file)) << command;
    }
    EXPECT_EQ(help.suite.dialogs.seen().size(), 3);
    EXPECT_EQ(help.pane().SelLength(), 0); // dropped all the same
}
