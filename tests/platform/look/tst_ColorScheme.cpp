#include "ColorScheme.h"
#include "PrivateBus.h"
#include "StandInPortal.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

TEST(ColorScheme, WithoutAPortalItIsLight)
{
    const PrivateBus bus;
    ASSERT_TRUE(bus.isRunning());
    EXPECT_FALSE(ColorScheme(nullptr).prefersDark());
}

TEST(ColorScheme, FollowsThePortal)
{
    const PrivateBus bus;
    ASSERT_TRUE(bus.isRunning());
    StandInPortal portal(1);
    ColorScheme scheme(nullptr);
    EXPECT_TRUE(scheme.prefersDark());
    QSignalSpy turns(&scheme, &ColorScheme::changed);
    portal.turnTo(2);
    ASSERT_TRUE(turns.wait());
    ASSERT_EQ(turns.size(), 1); // other settings are ignored
    EXPECT_FALSE(turns[0][0].toBool());
}

TEST(ColorScheme, NoPreferenceIsLight)
{
    const PrivateBus bus;
    ASSERT_TRUE(bus.isRunning());
    const StandInPortal portal(0);
    EXPECT_FALSE(ColorScheme(nullptr).prefersDark());
}
