#include "DropFiles.h"
#include "Files.h"
#include "Forms.h"
#include "FrameButtons.h"
#include "Globals.h"
#include "HostileNames.h"
#include "MdiArea.h"
#include "RunningSuite.h"
#include "ScratchVariable.h"
#include "ShownText.h"
#include "StandInTool.h"
#include "StatusBar.h"
#include "Toolbar.h"
#include "mMain.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

struct FrameTest : testing::Test
{
    RunningSuite suite;

    MdiArea &area() const { return *static_cast<MdiArea *>(suite.frame().centralWidget()); }
    bool wordButtonsShown(int first) const
    {
        for (const ToolbarRow &row : FrameButtons::rows()) {
            if (row.position >= first && row.position <= 24 &&
                !suite.frame().tbToolBar().button(row.position).isVisible())
                return false;
        }
        return true;
    }
    bool barHasFrameMenus() const
    {
        return suite.frame().menuBar()->actions().contains(&suite.item("mnuFile"));
    }
    void waitForTimer() const
    {
        QSignalSpy ticks(suite.frame().findChild<QTimer *>(QStringLiteral("Timer1")), &QTimer::timeout);
        ASSERT_TRUE(ticks.wait(5000));
    }
    void closeAllDocuments() const
    {
        while (suite.frame().ActiveForm())
            suite.choose("mnuFileClose");
    }
};

void registerTool(const QString &name, Forms::Instances instances, const QString &menu = {})
{
    Forms::registerWindow(name, instances, [name, menu] { return new StandInTool(name, menu); });
}

} // namespace

TEST_F(FrameTest, StartsWithDocument1AndTheWordButtons)
{
    EXPECT_EQ(suite.frame().windowTitle(), QStringLiteral("Tallowick - Quill-Office Tools"));
    EXPECT_EQ(suite.active().Caption(), QStringLiteral("Document 1"));
    EXPECT_EQ(suite.active().Name(), QStringLiteral("frmDocument"));
    EXPECT_TRUE(wordButtonsShown(1));
    for (const ToolbarRow &row : FrameButtons::rows())
        EXPECT_TRUE(suite.frame().tbToolBar().button(row.position).isEnabled());
    EXPECT_EQ(diallerMode, QStringLiteral("Setup"));
}

TEST_F(FrameTest, ClosingEveryDocumentLeavesNewAndOpen)
{
    closeAllDocuments();
    EXPECT_FALSE(suite.frame().tbToolBar().button(3).isVisible());
    EXPECT_TRUE(suite.frame().tbToolBar().button(1).isVisible());
    EXPECT_TRUE(suite.frame().tbToolBar().button(2).isVisible());
    QStringList fileMenu;
    for (const QAction *item : suite.item("mnuFile").menu()->actions()) {
        if (item->isVisible())
            fileMenu << item->objectName();
    }
    EXPECT_EQ(fileMenu, QStringList({QStringLiteral("mnuFileNew"), QStringLiteral("mnuFileOpen"),
                                     QStringLiteral("mnuFileBar3"), QStringLiteral("mnuFileExit")}));
    suite.choose("mnuFileNew");
    EXPECT_EQ(suite.active().Caption(), QStringLiteral("Document 2"));
    EXPECT_TRUE(wordButtonsShown(1));
    EXPECT_TRUE(suite.item("mnusaveonly").isVisible());
}

TEST_F(FrameTest, ANumberIsNeverUsedTwice)
{
    suite.choose("mnuWindowNewWindow");
    EXPECT_EQ(suite.active().Caption(), QStringLiteral("Document 2"));
    suite.choose("mnuFileClose");
    suite.press("New");
    EXPECT_EQ(suite.active().Caption(), QStringLiteral("Document 3"));
}

TEST_F(FrameTest, AToolHidesTheWordButtonsUntilADocumentIsActive)
{
    registerTool(QStringLiteral("frmStandIn"), Forms::Instances::One);
    Forms::refer(QStringLiteral("frmStandIn")).showModeless();
    waitForTimer();
    for (const ToolbarRow &row : FrameButtons::rows())
        EXPECT_EQ(suite.frame().tbToolBar().button(row.position).isVisible(), row.position > 24);
    CloseFormByName(QStringLiteral("frmStandIn"));
    EXPECT_EQ(suite.active().Name(), QStringLiteral("frmDocument"));
    waitForTimer();
    EXPECT_TRUE(wordButtonsShown(1));
}

TEST_F(FrameTest, TwoDocumentsAndAHiddenReportCountAsThree)
{
    suite.choose("mnuFileNew");
    Form report(QStringLiteral("frmReport"));
    RichTextBox text(&report);
    text.setObjectName(QStringLiteral("rtfTextBox"));
    report.load();
    const QAction &save = suite.frame().tbToolBar().button(3);
    for (int closed = 0; closed < 2; ++closed) {
        suite.choose("mnuFileClose");
        EXPECT_TRUE(save.isVisible());
    }
    EXPECT_EQ(suite.frame().ActiveForm(), nullptr);
    report.setAttribute(Qt::WA_DeleteOnClose, false); // it is this test's own
    report.unload();
    suite.frame().checkForDocument();
    EXPECT_FALSE(save.isVisible());
}

TEST_F(FrameTest, AToolsItemsOfTheSameNamesAreItsOwn)
{
    Forms::registerWindow(QStringLiteral("frmTool"), Forms::Instances::One,
                          [] { return new StandInTool(QStringLiteral("frmTool")); });
    Form &tool = Forms::refer(QStringLiteral("frmTool"));
    auto *own = new QAction(&tool);
    own->setObjectName(QStringLiteral("mnuFileSaveAs"));
    tool.showModeless();
    CloseFormByName(QStringLiteral("frmDocument"));
    EXPECT_TRUE(own->isVisible());
    EXPECT_FALSE(suite.item("mnuFileSaveAs").isVisible());
}

TEST_F(FrameTest, ASingleInstanceToolOpensOnce)
{
    registerTool(QStringLiteral("frmStandIn"), Forms::Instances::One);
    Form &first = Forms::refer(QStringLiteral("frmStandIn"));
    first.showModeless();
    suite.choose("mnuFileNew");
    first.parentWidget()->showMinimized();
    Form &second = Forms::refer(QStringLiteral("frmStandIn"));
    second.showModeless();
    EXPECT_EQ(&first, &second);
    EXPECT_EQ(static_cast<StandInTool &>(second).loads, 1);
    EXPECT_EQ(suite.frame().ActiveForm(), &second);
    EXPECT_FALSE(second.parentWidget()->isMinimized());
    EXPECT_EQ(Forms::named(QStringLiteral("frmStandIn")).size(), 1);
}

TEST_F(FrameTest, AManyInstancesToolOpensAsOftenAsAsked)
{
    registerTool(QStringLiteral("frmStandIns"), Forms::Instances::Many);
    Forms::refer(QStringLiteral("frmStandIns")).showModeless();
    Forms::refer(QStringLiteral("frmStandIns")).showModeless();
    EXPECT_EQ(Forms::named(QStringLiteral("frmStandIns")).size(), 2);
}

TEST_F(FrameTest, ARestartedToolLosesItsState)
{
    registerTool(QStringLiteral("frmStandIn"), Forms::Instances::One);
    Form &first = Forms::refer(QStringLiteral("frmStandIn"));
    first.showModeless();
    first.setCaption(QStringLiteral("changed"));
    CloseFormByName(QStringLiteral("frmStandIn"));
    Form &second = Forms::refer(QStringLiteral("frmStandIn"));
    second.showModeless();
    EXPECT_EQ(second.Caption(), QStringLiteral("frmStandIn"));
    EXPECT_EQ(Forms::named(QStringLiteral("frmStandIn")).size(), 1);
}

TEST_F(FrameTest, TheViewItemsShowAndHideTheBars)
{
    for (int round = 0; round < 2; ++round)
        suite.choose("mnuViewStatusBar");
    EXPECT_TRUE(suite.frame().findChild<QStatusBar *>(QStringLiteral("sbStatusBar"))->isVisible());
    EXPECT_TRUE(suite.item("mnuViewStatusBar").isChecked());
    suite.choose("mnuViewStatusBar");
    EXPECT_FALSE(suite.frame().findChild<QStatusBar *>(QStringLiteral("sbStatusBar"))->isVisible());
    suite.choose("mnuViewToolbar");
    EXPECT_FALSE(suite.frame().tbToolBar().isVisible());
    EXPECT_FALSE(suite.item("mnuViewToolbar").isChecked());
}

TEST_F(FrameTest, NoContextMenuHidesTheToolbarBesideTheViewMenu)
{
    QWidget *bar = suite.frame().findChild<QStatusBar *>(QStringLiteral("sbStatusBar"));
    QContextMenuEvent asked(QContextMenuEvent::Mouse, QPoint(5, 5), bar->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(bar, &asked);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(FrameTest, TheStatusBarReadsReady)
{
    auto *panel = suite.frame().findChild<QLabel *>(QStringLiteral("panel_1"));
    EXPECT_EQ(panel->text(), QStringLiteral("Ready.."));
    EXPECT_EQ(panel->toolTip(), QStringLiteral("Ready.."));
}

TEST_F(FrameTest, TheActiveChildsMenusTakeTheBar)
{
    registerTool(QStringLiteral("frmStandIn"), Forms::Instances::One, QStringLiteral("&Own"));
    Form &tool = Forms::refer(QStringLiteral("frmStandIn"));
    tool.showModeless();
    EXPECT_FALSE(barHasFrameMenus());
    EXPECT_EQ(suite.frame().menuBar()->actions().value(0)->text(), QStringLiteral("&Own"));
    tool.unload();
    QCoreApplication::processEvents();
    EXPECT_TRUE(barHasFrameMenus());
    closeAllDocuments();
    EXPECT_TRUE(barHasFrameMenus());
}

TEST_F(FrameTest, TheFramesMenusComeBackThoughAChildIsLoadedAndNotShown)
{
    registerTool(QStringLiteral("frmStandIn"), Forms::Instances::Many, QStringLiteral("&Own"));
    Form &hidden = Forms::refer(QStringLiteral("frmStandIn"));
    hidden.load();
    closeAllDocuments();
    Form &tool = Forms::refer(QStringLiteral("frmStandIn"));
    tool.showModeless();
    EXPECT_FALSE(barHasFrameMenus());
    tool.unload();
    QCoreApplication::processEvents();
    EXPECT_TRUE(barHasFrameMenus());
}

TEST_F(FrameTest, TheWindowMenuListsAnyCaption)
{
    QMenu *menu = suite.item("mnuWindow").menu();
    for (const HostileName &name : HostileNames::texts()) {
        suite.active().setCaption(name.text());
        Q_EMIT menu->aboutToShow();
        const QString shown = ShownText::line(name.text());
        constexpr int certainlyWhole = 30; // characters
        if (shown.size() <= certainlyWhole) {
            EXPECT_EQ(menu->actions().constLast()->text(),
                      QStringLiteral("&1 ") + QString(shown).replace(u'&', QLatin1String("&&")))
                << name.what;
        }
    }
}

TEST_F(FrameTest, TheWindowMenuCutsALongPathInTheMiddle)
{
    const QString path = QStringLiteral("/home/me & you/") + QStringLiteral("a folder/").repeated(50) +
                         QStringLiteral("a & b.rtf");
    suite.active().setCaption(path);
    suite.choose("mnuFileNew");
    QMenu *menu = suite.item("mnuWindow").menu();
    Q_EMIT menu->aboutToShow();
    QAction *item = menu->actions().value(menu->actions().size() - 2);
    EXPECT_TRUE(item->text().startsWith(QStringLiteral("&1 /home/me && you/")))
        << qUtf8Printable(item->text());
    EXPECT_TRUE(item->text().endsWith(QStringLiteral("a && b.rtf"))) << qUtf8Printable(item->text());
    EXPECT_LT(menu->sizeHint().width(), 500);
    item->trigger();
    EXPECT_EQ(suite.active().Caption(), path);
}

TEST_F(FrameTest, TheWindowMenuListsTheChildren)
{
    suite.choose("mnuFileNew");
    suite.active().setCaption(QStringLiteral("/tmp/A & B"));
    QMenu *menu = suite.item("mnuWindow").menu();
    Q_EMIT menu->aboutToShow();
    Q_EMIT menu->aboutToShow();
    QStringList listed;
    QAction *first = nullptr;
    for (QAction *item : menu->actions()) {
        if (item->objectName() != QStringLiteral("WindowList") || item->isSeparator())
            continue;
        listed << item->text() + (item->isChecked() ? QStringLiteral("*") : QString());
        first = first ? first : item;
    }
    EXPECT_EQ(listed, QStringList({QStringLiteral("&1 Document 1"), QStringLiteral("&2 /tmp/A && B*")}));
    area().childWindows().value(0)->showMinimized();
    first->trigger();
    EXPECT_EQ(suite.active().Caption(), QStringLiteral("Document 1"));
    EXPECT_FALSE(area().childWindows().value(0)->isMinimized());
}

TEST_F(FrameTest, TheFourArrangements)
{
    suite.choose("mnuFileNew");
    suite.choose("mnuFileNew");
    const QList<QMdiSubWindow *> children = area().childWindows();
    suite.choose("mnuWindowTileHorizontal");
    for (const QMdiSubWindow *child : children)
        EXPECT_EQ(child->width(), area().viewport()->width());
    EXPECT_EQ(suite.frame().ActiveForm()->parentWidget()->y(), 0);

    suite.choose("mnuWindowTileVertical");
    for (const QMdiSubWindow *child : children)
        EXPECT_EQ(child->height(), area().viewport()->height());

    children[0]->showMinimized();
    suite.choose("mnuWindowTileVertical");
    EXPECT_TRUE(children[0]->isMinimized());
    EXPECT_EQ(children[0]->geometry().bottomLeft(), area().viewport()->rect().bottomLeft());
    EXPECT_EQ(children[1]->height(), area().viewport()->height() - children[0]->height());

    const Form *active = suite.frame().ActiveForm();
    suite.choose("mnuWindowCascade");
    EXPECT_EQ(suite.frame().ActiveForm(), active);
    EXPECT_EQ(children[1]->pos(), QPoint(0, 0));
    EXPECT_GT(children[2]->x(), 0);
    EXPECT_GT(children[2]->y(), 0);

    children[0]->move(50, 50);
    suite.choose("mnuWindowArrangeIcons");
    EXPECT_EQ(children[0]->geometry().bottomLeft(), area().viewport()->rect().bottomLeft());
}

TEST_F(FrameTest, ClosingTheFrameReachesEveryChildAndEndsTheProgram)
{
    suite.type(QStringLiteral("a"));
    suite.choose("mnuFileNew");
    suite.type(QStringLiteral("b"));
    for (const char *name : {"Document 1", "Document 2"}) {
        suite.dialogs
            .expectBox(QStringLiteral("Save Changes?..."),
                       QStringLiteral("Save Changes to ") + QString::fromLatin1(name))
            .press(QMessageBox::No);
    }
    suite.fatal.expectEnd(EXIT_SUCCESS);
    suite.frame().close();
    EXPECT_EQ(Forms::named(QStringLiteral("frmDocument")).size(), 0);
}

TEST_F(FrameTest, TheFrameStaysWhileAChildsQuestionIsOpen)
{
    suite.type(QStringLiteral("a"));
    suite.dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"), [this](QMessageBox &box) {
        EXPECT_EQ(box.text(), QStringLiteral("Save Changes to Document 1"));
        suite.frame().close();
        EXPECT_TRUE(suite.fatal.ends().isEmpty());
        EXPECT_TRUE(box.isVisible());
        box.button(QMessageBox::No)->click();
    });
    suite.choose("mnuFileClose");
    EXPECT_TRUE(suite.frame().isVisible());
    EXPECT_TRUE(Forms::named(QStringLiteral("frmDocument")).isEmpty());
    suite.fatal.expectEnd(EXIT_SUCCESS);
    suite.frame().close();
}

TEST_F(FrameTest, TheTipsDocumentOpensOnceAndLocked)
{
    suite.choose("mnutipsandtricks");
    const QString path = suite.active().Caption();
    EXPECT_TRUE(path.endsWith(QStringLiteral("/help/tipsandtricks.rtf")));
    EXPECT_TRUE(suite.text().Locked());
    EXPECT_TRUE(suite.text().Text().startsWith(QStringLiteral("Tips and Tricks")));
    suite.type(QStringLiteral("x"));
    EXPECT_TRUE(suite.text().Text().startsWith(QStringLiteral("Tips and Tricks")));
    suite.dialogs
        .expectBox(QStringLiteral("File already open..."),
                   path + QStringLiteral(" is already open. Cannot load the same file twice!"))
        .icon(QMessageBox::Critical);
    suite.choose("mnutipsandtricks");
    suite.choose("mnuFileClose"); // a locked document asks nothing
    EXPECT_EQ(suite.active().Caption(), QStringLiteral("Document 1"));
}

TEST_F(FrameTest, TheToolbarIgnoresErrorsTheMenuDoesNot)
{
    registerTool(QStringLiteral("frmStandIn"), Forms::Instances::One);
    Forms::refer(QStringLiteral("frmStandIn")).showModeless();
    suite.press("Save");
    suite.fatal.expect(438);
    suite.choose("mnusaveonly");
}

TEST_F(FrameTest, ItemsOfToolsThatAreNotInstalledAreGreyInMenusAndToolbarLists)
{
    const ScratchVariable path{"PATH", suite.home.file(QStringLiteral("bin")).toUtf8()};
    const ScratchVariable data{"XDG_DATA_DIRS", suite.home.file(QStringLiteral("data")).toUtf8()};
    Q_EMIT suite.item("mnuTools").menu()->aboutToShow();
    EXPECT_FALSE(suite.item("mnuDefrag").isEnabled());
    EXPECT_TRUE(suite.item("mnuToolsOptions").isEnabled());
    const auto *tools = suite.frame().tbToolBar().findChild<QToolButton *>(QStringLiteral("tools"));
    Q_EMIT tools->menu()->aboutToShow();
    int grey = 0;
    for (const QAction *entry : tools->menu()->actions())
        grey += entry->isSeparator() || entry->isEnabled() ? 0 : 1;
    EXPECT_GT(grey, 3);
}

TEST_F(FrameTest, DroppedDocumentsAreOpenedAlsoOverAText)
{
    const QString letter = suite.home.file(QStringLiteral("letter.rtf"));
    const QString notes = suite.home.file(QStringLiteral("notes.txt"));
    Files::write(letter, "{\\rtf1 letter}");
    Files::write(notes, "notes");
    EXPECT_TRUE(dropFiles(suite.frame(), {letter.toUtf8()}));
    EXPECT_EQ(suite.active().Caption(), letter);
    EXPECT_EQ(suite.text().Text(), QStringLiteral("letter"));
    EXPECT_TRUE(dropFiles(*suite.text().viewport(), {notes.toUtf8()}));
    EXPECT_EQ(suite.active().Caption(), notes);
    EXPECT_EQ(suite.text().Text(), QStringLiteral("notes"));
}

TEST_F(FrameTest, ADroppedDocumentThatIsOpenIsRefused)
{
    const QString notes = suite.home.file(QStringLiteral("notes.txt"));
    Files::write(notes, "notes");
    EXPECT_TRUE(dropFiles(suite.frame(), {notes.toUtf8()}));
    suite.dialogs.expectBox(QStringLiteral("File already open..."),
                            notes + QStringLiteral(" is already open. Cannot load the same file twice!"));
    EXPECT_TRUE(dropFiles(suite.frame(), {notes.toUtf8()}));
}

TEST_F(FrameTest, OtherFilesAreNotTaken)
{
    const QString other = suite.home.file(QStringLiteral("picture.png"));
    Files::write(other, "no document");
    EXPECT_FALSE(dropFiles(suite.frame(), {other.toUtf8()}));
}
