#include "Pause.h"

#include "PrintQt.h"

#include <QElapsedTimer>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

constexpr int length = 100; // milliseconds

struct PauseTest : testing::Test
{
    QElapsedTimer elapsed;
    QTimer timer;

    PauseTest()
    {
        timer.start(0);
        elapsed.start();
    }
};

} // namespace

TEST_F(PauseTest, LetsNoEventRun)
{
    int events = 0;
    timer.callOnTimeout([&] { ++events; });
    Pause(length, false);
    EXPECT_GE(elapsed.elapsed(), length);
    EXPECT_EQ(events, 0);
}

TEST_F(PauseTest, LetsEventsRunWhereAskedFor)
{
    int events = 0;
    timer.callOnTimeout([&] { ++events; });
    Pause(length, true);
    EXPECT_GE(elapsed.elapsed(), length);
    EXPECT_GT(events, 1);
}

/// The time in which events run is a part of it.
TEST_F(PauseTest, CountsTheTimeAndNotTheTurns)
{
    constexpr int turns = 4;
    int events = 0;
    timer.callOnTimeout([&] {
        ++events;
        Pause(length / turns, false);
    });
    Pause(length, true);
    EXPECT_GE(events, 1);
    EXPECT_LE(events, turns + 1);
}

TEST_F(PauseTest, IsReplaced)
{
    QList<int> pauses;
    setPause([&](int milliseconds) { pauses.append(milliseconds); });
    Pause(1000, false);
    setPause({});
    EXPECT_EQ(pauses, QList<int>{1000});
    EXPECT_LT(elapsed.elapsed(), 1000);
}
