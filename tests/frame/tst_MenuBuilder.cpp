#include "MenuBuilder.h"

#include <QGuiApplication>
#include <QWidget>
#include <gtest/gtest.h>

namespace {

constexpr MenuRow menuRows[] = {
    {0, "mnuOne", "&One", nullptr, 0, nullptr},
    {1, "mnuOneA", "&A", "Ctrl+Q", 0, "document-new"},
    {1, "mnuOneBar", "-", nullptr, MenuRow::Separator, nullptr},
    {1, "mnuOneMore", "&More", nullptr, 0, nullptr},
    {2, "mnuDeep", "Deep", nullptr, MenuRow::Checked, nullptr},
    {1, "mnuGone", "Gone", nullptr, MenuRow::Hidden | MenuRow::Disabled, nullptr},
    {0, "mnuEmpty", "&Empty", nullptr, 0, nullptr},
};

struct MenuBuilderTest : testing::Test
{
    QWidget owner;
    QList<QMenu *> bar = MenuBuilder::build(menuRows, owner);
    QAction &item(const char *name) const { return *owner.findChild<QAction *>(QString::fromLatin1(name)); }
};

} // namespace

TEST_F(MenuBuilderTest, BuildsTheTreeOfTheRows)
{
    ASSERT_EQ(bar.size(), 2);
    EXPECT_EQ(bar[0]->title(), QStringLiteral("&One"));
    QStringList names;
    for (const QAction *action : bar[0]->actions())
        names << action->objectName();
    EXPECT_EQ(names.join(u' '), QStringLiteral("mnuOneA mnuOneBar mnuOneMore mnuGone"));
    EXPECT_EQ(item("mnuOneMore").menu()->actions().value(0), &item("mnuDeep"));
    EXPECT_TRUE(bar[1]->isEmpty());
}

TEST_F(MenuBuilderTest, TakesOverFlagsAndShortcuts)
{
    EXPECT_EQ(item("mnuOneA").shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Q));
    EXPECT_TRUE(item("mnuOneBar").isSeparator());
    EXPECT_TRUE(item("mnuDeep").isChecked());
    EXPECT_FALSE(item("mnuGone").isVisible());
    EXPECT_FALSE(item("mnuGone").isEnabled());
}

TEST_F(MenuBuilderTest, IconsFollowThePalette)
{
    const QImage onLight = item("mnuOneA").icon().pixmap(16).toImage();
    QPalette dark;
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::WindowText, Qt::white);
    QGuiApplication::setPalette(dark);
    owner.setPalette(dark);
    EXPECT_FALSE(onLight.isNull());
    EXPECT_NE(item("mnuOneA").icon().pixmap(16).toImage(), onLight);
}
