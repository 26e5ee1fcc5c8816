#include "BoxItem.h"

#include <QAction>
#include <QCheckBox>
#include <gtest/gtest.h>

namespace {

struct BoxItemTest : testing::Test
{
    QAction item;
    QCheckBox box;

    BoxItemTest()
    {
        item.setCheckable(true);
        QObject::connect(&item, &QAction::triggered, &item, [this] { BoxItem::toggle(item, box); });
    }
};

} // namespace

TEST_F(BoxItemTest, BothChangeTogether)
{
    for (const bool ticked : {true, false, true}) {
        item.trigger();
        EXPECT_EQ(item.isChecked(), ticked);
        EXPECT_EQ(box.isChecked(), ticked);
    }
}

TEST_F(BoxItemTest, TheBoxDecides)
{
    box.click();
    EXPECT_FALSE(item.isChecked());
    item.trigger();
    EXPECT_FALSE(box.isChecked());
    EXPECT_FALSE(item.isChecked());
    item.trigger();
    box.click();
    EXPECT_TRUE(item.isChecked());
    item.trigger();
    EXPECT_TRUE(box.isChecked());
    EXPECT_TRUE(item.isChecked());
}
