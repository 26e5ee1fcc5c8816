#include "CheckValue.h"
#include "ErrorNumberOf.h"

#include <QCheckBox>
#include <gtest/gtest.h>

TEST(CheckValue, ThreeStatesAreThreeNumbers)
{
    QCheckBox box;
    for (int value : {1, 2, 0}) {
        CheckValue::set(box, value);
        EXPECT_EQ(CheckValue::of(box), value);
    }
}

TEST(CheckValue, AnyOtherNumberIsRefused)
{
    QCheckBox box;
    CheckValue::set(box, 1);
    EXPECT_EQ(errorNumberOf([&] { CheckValue::set(box, 3); }), 380);
    EXPECT_EQ(errorNumberOf([&] { CheckValue::set(box, -1); }), 380);
    EXPECT_EQ(CheckValue::of(box), 1);
}
