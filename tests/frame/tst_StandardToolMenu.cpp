#include "Forms.h"
#include "RunningSuite.h"
#include "StandInTool.h"
#include "StandardToolMenu.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

namespace {

namespace Menu = StandardToolMenu;

static_assert(renamed(Menu::Close, "mnuclosehelp", "&Close Help").runs == Menu::Runs::CloseWindow);

constexpr ToolMenuRow toolRows[] = {
    Menu::File,
    Menu::NewDocument,
    {{1, "mnuOwn", "&Own", nullptr, 0, nullptr}},
    renamed(Menu::Close, "mnuclosehelp", "&Close Help"),
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
    ToolWithMenu *tool = new ToolWithMenu; // deleted when it is closed
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

TEST_F(StandardToolMenuTest, ItsWindowMenuEndsInTheOpenWindows)
{
    QMenu &menu = *tool->menus().last();
    Q_EMIT menu.aboutToShow();
    Q_EMIT menu.aboutToShow(); // the list of an earlier opening is replaced
    QStringList entries;
    for (const QAction *item : menu.actions().mid(4))
        entries << item->text();
    EXPECT_EQ(entries.join(u'|'), QStringLiteral("|&1 Document 1|&2 "));
    menu.actions().at(5)->trigger();
    EXPECT_EQ(suite.active().Name(), QStringLiteral("frmDocument"));
}

TEST_F(StandardToolMenuTest, ARenamedRowKeepsItsIcon)
{
    const auto *close = tool->findChild<QAction *>(QStringLiteral("mnuclosehelp"));
    EXPECT_FALSE(close->icon().isNull());
}

TEST_F(StandardToolMenuTest, ExitsTheProgram)
{
    suite.fatal.expectEnd(EXIT_SUCCESS);
    choose("mnuexittools");
}
