#include "ErrorNumberOf.h"
#include "Toolbar.h"

#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

constexpr ToolbarRow rows[] = {
    {1, "New", "New Document", "document-new"},
    {4, nullptr, nullptr, nullptr},
    {5, "Print", "Print Document", "document-print", ToolbarRow::Style::DropDown},
    {11, "Bold", "Bold", "format-text-bold"},
    {14, "Left", "Left", "format-justify-left", ToolbarRow::Style::Group},
    {15, "Center", "Center", "format-justify-center", ToolbarRow::Style::Group},
    {26, "Calculator", "Calculator", "accessories-calculator"},
};

constexpr ToolbarMenuRow lists[] = {
    {"Print", "Selection", "prtselection", nullptr},
    {"Print", nullptr, nullptr, nullptr},
    {"Print", "All", "prtall", "document-print"},
};

struct ToolbarTest : testing::Test
{
    Toolbar toolbar;
    ToolbarTest()
    {
        toolbar.setButtons(rows);
        toolbar.setLists(lists);
        toolbar.show();
    }
    QToolButton *widget(const char *key) const
    {
        return toolbar.findChild<QToolButton *>(QString::fromLatin1(key));
    }
    void click(const char *key) const { QTest::mouseClick(widget(key), Qt::LeftButton); }
    bool pressed(const char *key) const { return toolbar.isPressed(QString::fromLatin1(key)); }
};

} // namespace

TEST_F(ToolbarTest, ButtonsAreReachedByPositionAndByKey)
{
    EXPECT_EQ(&toolbar.button(5), &toolbar.button(QStringLiteral("Print")));
    EXPECT_EQ(toolbar.button(26).toolTip(), QStringLiteral("Calculator"));
    EXPECT_TRUE(toolbar.button(4).isSeparator());
    EXPECT_EQ(errorNumberOf([&] { toolbar.button(2); }), 35601);
    EXPECT_EQ(errorNumberOf([&] { toolbar.button(QStringLiteral("print")); }), 35601);
}

TEST_F(ToolbarTest, RangesIncludeTheSeparatorsBetween)
{
    toolbar.setButtonsVisible(2, 24, false);
    toolbar.setButtonsEnabled(1, 5, false);
    EXPECT_TRUE(toolbar.button(1).isVisible());
    EXPECT_FALSE(toolbar.button(4).isVisible());
    EXPECT_FALSE(toolbar.button(5).isVisible());
    EXPECT_TRUE(toolbar.button(26).isVisible());
    EXPECT_FALSE(toolbar.button(1).isEnabled());
    EXPECT_TRUE(toolbar.button(26).isEnabled());
}

TEST_F(ToolbarTest, AClickEmitsTheKey)
{
    QSignalSpy clicks(&toolbar, &Toolbar::ButtonClick);
    click("Print");
    ASSERT_EQ(clicks.size(), 1);
    EXPECT_EQ(clicks[0][0].toString(), QStringLiteral("Print"));
}

TEST_F(ToolbarTest, AListEntryEmitsItsKey)
{
    QSignalSpy entries(&toolbar, &Toolbar::ButtonMenuClick);
    QSignalSpy buttons(&toolbar, &Toolbar::ButtonClick);
    const QList<QAction *> list = widget("Print")->menu()->actions();
    ASSERT_EQ(list.size(), 3);
    EXPECT_TRUE(list[1]->isSeparator());
    list[2]->trigger();
    ASSERT_EQ(entries.size(), 1);
    EXPECT_EQ(entries[0][0].toString(), QStringLiteral("prtall"));
    EXPECT_EQ(buttons.size(), 0);
}

TEST_F(ToolbarTest, AClickLeavesThePressedLookAsItIs)
{
    click("Bold");
    EXPECT_FALSE(pressed("Bold"));
    toolbar.setPressed(QStringLiteral("Bold"), true);
    click("Bold");
    EXPECT_TRUE(pressed("Bold"));
    toolbar.setPressed(QStringLiteral("Bold"), false);
    EXPECT_FALSE(pressed("Bold"));
}

TEST_F(ToolbarTest, TheButtonsOfAGroupReleaseEachOther)
{
    toolbar.setPressed(QStringLiteral("Bold"), true);
    click("Left");
    click("Center");
    EXPECT_FALSE(pressed("Left"));
    EXPECT_TRUE(pressed("Center"));
    click("Center");
    EXPECT_TRUE(pressed("Center"));
    EXPECT_TRUE(pressed("Bold"));
}
