#include "BoxText.h"
#include "PrintQt.h"

#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

TEST(BoxText, IsShownWholeAndOnlyGetsShorter)
{
    QLineEdit box;
    box.setMaxLength(5);
    BoxText::set(box, QStringLiteral("abc"));
    QTest::keyClicks(&box, QStringLiteral("defg"));
    EXPECT_EQ(box.text(), QStringLiteral("abcde"));
    BoxText::set(box, QStringLiteral("abcdefgh"));
    EXPECT_EQ(box.text(), QStringLiteral("abcdefgh"));
    QTest::keyClicks(&box, QStringLiteral("i"));
    EXPECT_EQ(box.text(), QStringLiteral("abcdefgh"));
}
