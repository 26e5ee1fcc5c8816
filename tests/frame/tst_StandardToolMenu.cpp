#include "Forms.h"
#include "RunningSuite.h"
#include "StandInTool.h"
#include "StandardToolMenu.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

namespace {

namespace Menu = StandardToolMenu;

constexpr ToolMenuRow toolRows[] = {
    Menu::File,
    Menu::NewDocument,
    {{1, "mnuOwn", "&Own", nullptr, 0, nullptr}},
    {{1, "mnuclosehelp", "&Close Help", nullptr, 0, nullptr}, Menu::Runs::CloseWindow},
    Menu::ExitTools,
    Menu::Window,
    Menu::Cascade,
    Menu::TileHorizontal,
    Menu::TileVertical,
    Menu::ArrangeIcons,
};

/// A tool with the standard menu and one item of its own.
class ToolWithMenu : public ChildForm
{
public:
    ToolWithMenu()
        : ChildForm(QStringLiteral("frmWithMenu"))
        , m_menus(Menu::build(toolRows, *this))
    {}
    QList<QMenu *> menus() const override { return m_menus; }

private:
    QList<QMenu *> m_menus;
};

struct StandardToolMenuTest : testing::Test
{
    RunningSuite suite;
    ToolWithMenu *tool = new ToolWithMenu; // goes with its own closing
    StandardToolMenuTest() { tool->showModeless(); }

    void choose(const char *name) const
    {
        tool->findChild<QAction *>(QString::fromLatin1(name))->trigger();
        QCoreApplication::processEvents();
    }
};

} // namespace

TEST_F(StandardToolMenuTest, ItsCaptions)
{
    QStringList captions;
    for (const QMenu *menu : tool->menus()) {
        for (const QAction *item : menu->actions())
            captions << item->text();
    }
    EXPECT_EQ(captions.join(u'|'),
              QStringLiteral("New Quill &Word Document|&Own|&Close Help|E&xit Quill-Office Tools|"
                             "&Cascade|Tile &Horizontal|Tile &Vertical|Arrange &Icons"));
}

TEST_F(StandardToolMenuTest, OpensADocument)
{
    choose("mnuNewQuillWord");
    EXPECT_EQ(suite.active().Caption(), QStringLiteral("Document 2"));
}

TEST_F(StandardToolMenuTest, ClosesItsOwnWindowUnderItsOwnName)
{
    suite.choose("mnuFileNew"); // another window is active
    choose("mnuclosehelp");
    EXPECT_TRUE(Forms::named(QStringLiteral("frmWithMenu")).isEmpty());
}

TEST_F(StandardToolMenuTest, ArrangesTheChildren)
{
    const QWidget &child = *tool->parentWidget();
    const QWidget &area = *child.parentWidget();
    choose("mnuTileHorizontal");
    EXPECT_EQ(child.width(), area.width());
    choose("mnuTileVertical");
    EXPECT_EQ(child.height(), area.height());
    choose("mnuCascade");
    EXPECT_LT(child.height(), area.height());
    tool->parentWidget()->showMinimized();
    tool->parentWidget()->move(40, 40);
    choose("mnuArrangeIcons");
    EXPECT_EQ(child.geometry().bottomLeft(), area.rect().bottomLeft());
}

TEST_F(StandardToolMenuTest, ExitsTheProgram)
{
    suite.fatal.expectEnd(EXIT_SUCCESS);
    choose("mnuexittools");
}
