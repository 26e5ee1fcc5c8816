#include "FolderContent.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "UnzipRun.h"
#include "ZipRun.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <csignal>
#include <ctime>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int kills = 200;

/// Runs \a step in a process that is killed after so many microseconds.
template<class Step>
bool isKilled(long microseconds, Step step)
{
    const pid_t child = ::fork();
    if (child == 0) {
        sigevent event = {};
        event.sigev_notify = SIGEV_SIGNAL;
        event.sigev_signo = SIGKILL;
        timer_t timer = {};
        const itimerspec after = {{0, 0}, {microseconds / 1'000'000, microseconds % 1'000'000 * 1000 + 1}};
        if (::timer_create(CLOCK_MONOTONIC, &event, &timer) == 0 &&
            ::timer_settime(timer, 0, &after, nullptr) == 0)
            step();
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFSIGNALED(status);
}

/// How many microseconds \a step takes.
template<class Step>
int durationOf(Step step)
{
    QElapsedTimer timer;
    timer.start();
    step();
    return int(timer.nsecsElapsed() / 1000);
}

struct KilledJobTest : testing::Test
{
    ScratchFolder scratch;
    QByteArray archive = scratch.file("out/a.zip");
    QByteArrayList files;
    QRandomGenerator random{1};

    KilledJobTest()
    {
        scratch.addFolder("in");
        scratch.addFolder("out");
        for (int i = 0; i < 30; ++i) {
            files.append(scratch.file("in/" + QByteArray::number(i)));
            scratch.addFile("in/" + QByteArray::number(i), QByteArray::number(i).repeated(1000 + i * 3000));
        }
    }
    QByteArray content() const { return FolderContent::read(archive); }
    QByteArrayList beside() const { return FolderContent::filesOf(scratch.file("out")).keys(); }
};

} // namespace

TEST_F(KilledJobTest, LeavesTheOldArchive)
{
    ZipRun job;
    ASSERT_EQ(job.run(archive, files.mid(0, 10)), ZipResult::Success);
    const QByteArray old = content();
    const int duration = durationOf([&] { job.run(archive, files); });
    const QByteArray updated = content();
    scratch.addFile("out/a.zip", old);
    int killed = 0;
    for (int i = 0; i < kills; ++i) {
        killed += isKilled(random.bounded(duration), [&] { job.run(archive, files); });
        const bool isDone = content() == updated;
        ASSERT_TRUE(isDone || content() == old) << i;
        if (isDone)
            scratch.addFile("out/a.zip", old);
        ASSERT_LE(beside().size(), 2) << i; // the killed one's file, which the next job removes
    }
    EXPECT_GT(killed, kills / 4);
    EXPECT_EQ(job.run(archive, files), ZipResult::Success);
    EXPECT_EQ(beside(), QByteArrayList{"a.zip"});
}

TEST_F(KilledJobTest, LeavesOnlyWholeFiles)
{
    ZipRun zip;
    ASSERT_EQ(zip.run(archive, files), ZipResult::Success);
    const auto expected = FolderContent::filesOf(scratch.file("in"));
    const QByteArray target = scratch.file("target");
    const QByteArray below = target + scratch.file("in");
    UnzipRun job;
    job.options.noflag = 1;
    const int duration = durationOf([&] { job.extract(archive, target); });
    int killed = 0;
    for (int i = 0; i < kills; ++i) {
        killed += isKilled(random.bounded(duration), [&] { job.extract(archive, target); });
        int left = 0;
        const auto found = FolderContent::filesOf(target);
        for (auto file = found.cbegin(); file != found.cend(); ++file) {
            const QByteArray name = file.key().sliced(file.key().lastIndexOf('/') + 1);
            if (name.startsWith('.'))
                ++left;
            else
                ASSERT_TRUE(file.value() == expected.value(name)) << name.constData();
        }
        ASSERT_LE(left, files.size()) << i; // what replaces files waits for the disk; the next job removes it
    }
    EXPECT_GT(killed, kills / 4);
    EXPECT_EQ(job.extract(archive, target), UnzipResult::Success);
    EXPECT_TRUE(FolderContent::filesOf(below) == expected);
}
