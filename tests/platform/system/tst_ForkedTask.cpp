#include "ForkedTask.h"

#include <array>
#include <gtest/gtest.h>
#include <poll.h>
#include <stdexcept>
#include <string>
#include <unistd.h>

namespace {

constexpr int childPatience = 20000; // milliseconds

/// A pipe between this process and those that it forks.
struct Pipe
{
    Pipe() { (void)!::pipe(ends.data()); }
    ~Pipe()
    {
        ::close(ends[0]);
        closeEntry();
    }
    Pipe(const Pipe &) = delete;
    Pipe &operator=(const Pipe &) = delete;

    void put(char sign) const { (void)!::write(ends[1], &sign, 1); }
    /// Waits for the next sign; 0 when no process can write one any more, -1 when time has run out.
    int take() const
    {
        pollfd waiting = {ends[0], POLLIN, 0};
        char sign = 0;
        if (::poll(&waiting, 1, childPatience) != 1)
            return -1;
        return ::read(ends[0], &sign, 1) == 1 ? sign : 0;
    }
    void closeEntry()
    {
        if (ends[1] >= 0)
            ::close(ends[1]);
        ends[1] = -1;
    }

    std::array<int, 2> ends = {-1, -1};
};

} // namespace

TEST(ForkedTaskTest, SeesTheMemoryOfItsStart)
{
    const Pipe go;
    const Pipe answer;
    std::string text = "before";
    ForkedTask task;
    ASSERT_TRUE(task.start([&] {
        go.take();
        answer.put(text == "before" ? 'b' : 'a');
        return true;
    }));
    EXPECT_TRUE(task.isRunning());
    text = "after";
    go.put('x');
    EXPECT_EQ(answer.take(), 'b');
    EXPECT_TRUE(task.wait());
    EXPECT_FALSE(task.isRunning());
}

TEST(ForkedTaskTest, ReportsFailure)
{
    ForkedTask task;
    EXPECT_TRUE(task.hasSucceeded());
    task.start([] { return false; });
    EXPECT_FALSE(task.wait());
    task.start([]() -> bool { throw std::runtime_error("broken"); });
    EXPECT_FALSE(task.wait());
    task.start([] { return true; });
    EXPECT_TRUE(task.wait());
    EXPECT_TRUE(task.hasSucceeded());
}

TEST(ForkedTaskTest, IsStoppedWhereverItIs)
{
    Pipe held;
    ForkedTask task;
    task.start([&] {
        held.closeEntry();
        ::pause();
        return true;
    });
    task.stop();
    EXPECT_FALSE(task.isRunning());
    EXPECT_FALSE(task.hasSucceeded());
}

TEST(ForkedTaskTest, DiesWithTheProcessThatStartedIt)
{
    Pipe held; // by the inner process, as long as it lives
    ForkedTask outer;
    outer.start([&] {
        ForkedTask inner;
        inner.start([&] {
            held.put('i');
            ::pause();
            return true;
        });
        ::pause();
        return true;
    });
    held.closeEntry();
    ASSERT_EQ(held.take(), 'i');
    outer.stop();
    EXPECT_EQ(held.take(), 0);
}
