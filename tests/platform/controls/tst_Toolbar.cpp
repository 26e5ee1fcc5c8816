#include "ErrorNumberOf.h"
#include "Toolbar.h"

#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

constexpr ToolbarRow rows[] = {
    {1, "New", "New Document", "document-new"},
    {4, nullptr, nullptr, nullptr},
    {5, "Print", "Print Document", "document-print"},
    {26, "Calculator", "Calculator", "accessories-calculator"},
};

struct ToolbarTest : testing::Test
{
    Toolbar toolbar;
    ToolbarTest() { toolbar.setButtons(rows); }
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

TEST_F(ToolbarTest, RangesReachWhatLiesBetween)
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

TEST_F(ToolbarTest, AClickTellsTheKey)
{
    QSignalSpy clicks(&toolbar, &Toolbar::ButtonClick);
    toolbar.show();
    QTest::mouseClick(toolbar.findChild<QToolButton *>(QStringLiteral("Print")), Qt::LeftButton);
    ASSERT_EQ(clicks.size(), 1);
    EXPECT_EQ(clicks[0][0].toString(), QStringLiteral("Print"));
}
