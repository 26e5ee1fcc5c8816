#include "LineDevCaps.h"

#include "PrintQt.h"

#include <gtest/gtest.h>

namespace {

struct LineDevCapsTest : testing::Test
{
    LineDevCaps caps;
    LineDevCapsTest() { caps.dwTotalSize = 2301; }
};

} // namespace

TEST_F(LineDevCapsTest, GivesBackItsTextsWithTheirNul)
{
    caps.append(QStringLiteral("name"), caps.dwLineNameSize, caps.dwLineNameOffset);
    caps.append(QString(), caps.dwSwitchInfoSize, caps.dwSwitchInfoOffset);
    EXPECT_EQ(caps.dwLineNameOffset, 300u);
    EXPECT_EQ(caps.dwLineNameSize, 5u);
    EXPECT_EQ(caps.text(caps.dwLineNameSize, caps.dwLineNameOffset), QStringLiteral("name") + QChar(0));
    EXPECT_EQ(caps.text(caps.dwSwitchInfoSize, caps.dwSwitchInfoOffset), QString(QChar(0)));
    EXPECT_EQ(caps.text(3, 301), QStringLiteral("ame"));
    EXPECT_EQ(caps.dwUsedSize, 306u);
    EXPECT_EQ(caps.dwNeededSize, 306u);
}

TEST_F(LineDevCapsTest, ATextWithoutASizeOrAPlaceIsEmpty)
{
    caps.append(QStringLiteral("name"), caps.dwLineNameSize, caps.dwLineNameOffset);
    EXPECT_EQ(caps.text(0, 300), QString());
    EXPECT_EQ(caps.text(4, 0), QString());
}

TEST_F(LineDevCapsTest, ReadsNothingOutsideOfTheRecord)
{
    EXPECT_EQ(caps.text(1, 299), QString());
    EXPECT_EQ(caps.text(1, 2301), QString());
    EXPECT_EQ(caps.text(0xFFFFFFFF, 300), QString());
    EXPECT_EQ(caps.text(2001, 300).size(), 2001);
}

TEST_F(LineDevCapsTest, ATextThatIsTooLongIsLeftOut)
{
    caps.append(QString(2001, u'x'), caps.dwLineNameSize, caps.dwLineNameOffset);
    EXPECT_EQ(caps.dwLineNameSize, 0u);
    EXPECT_EQ(caps.dwNeededSize, 2302u);
    caps.append(QString(2000, u'x'), caps.dwSwitchInfoSize, caps.dwSwitchInfoOffset);
    EXPECT_EQ(caps.dwSwitchInfoSize, 2001u);
}
