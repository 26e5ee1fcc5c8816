#include "FileMode.h"
#include "PrintQt.h"
#include "ScratchFolder.h"

#include <QScopeGuard>
#include <atomic>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <thread>
#include <unistd.h>

TEST(FileModeTest, IsWhatTheMaskLeaves)
{
    const mode_t before = ::umask(027);
    const auto restore = qScopeGuard([before] { ::umask(before); });
    EXPECT_EQ(FileMode::ordinary(), 0640u);
    ::umask(0);
    EXPECT_EQ(FileMode::ordinary(), 0666u);
}

/// A file that another thread makes meanwhile is not open to everybody.
TEST(FileModeTest, TheMaskStays)
{
    const mode_t before = ::umask(077);
    const auto restore = qScopeGuard([before] { ::umask(before); });
    const ScratchFolder scratch;
    std::atomic<int> open = 0;
    {
        const std::jthread maker([&](const std::stop_token &stop) {
            while (!stop.stop_requested()) {
                const int file = ::creat(scratch.file("x").constData(), 0666);
                struct stat state = {};
                open += ::fstat(file, &state) != 0 || (state.st_mode & 0777) != 0600;
                ::close(file);
                ::unlink(scratch.file("x").constData());
            }
        });
        constexpr int calls = 5000;
        for (int i = 0; i < calls; ++i)
            FileMode::ordinary();
    }
    EXPECT_EQ(open, 0);
}
