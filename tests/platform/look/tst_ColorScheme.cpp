#include "ColorScheme.h"
#include "PrivateBus.h"
#include "StandInPortal.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

TEST(ColorScheme, WithoutAPortalItIsLight)
{
    ASSERT_TRUE(PrivateBus::isRunning());
    EXPECT_FALSE(ColorScheme(nullptr).prefersDark());
}

TEST(ColorScheme, FollowsThePortal)
{
    ASSERT_TRUE(PrivateBus::isRunning());
    StandInPortal portal(1);
    ColorScheme scheme(nullptr);
    EXPECT_TRUE(scheme.prefersDark());
    QSignalSpy turns(&scheme, &ColorScheme::changed);
    portal.turnTo(2);
    ASSERT_TRUE(turns.wait());
    ASSERT_EQ(turns.size(), 1); // other settings are ignored
    EXPECT_FALSE(turns[0][0].toBool());
}

TEST(ColorScheme, ALateAnswerIsAChange)
{
    ASSERT_TRUE(PrivateBus::isRunning());
    constexpr int moreThanThePatience = 300; // milliseconds
    StandInPortal portal(1, moreThanThePatience);
    ColorScheme scheme(nullptr);
    QSignalSpy turns(&scheme, &ColorScheme::changed);
    EXPECT_FALSE(scheme.prefersDark());
    ASSERT_TRUE(turns.wait());
    EXPECT_TRUE(turns[0][0].toBool());
}

TEST(ColorScheme, NoPreferenceIsLight)
{
    ASSERT_TRUE(PrivateBus::isRunning());
    const StandInPortal portal(0);
    EXPECT_FALSE(ColorScheme(nullptr).prefersDark());
}
