#include "BackgroundTask.h"

#include <QSignalSpy>
#include <QTest>
#include <cerrno>
#include <chrono>
#include <functional>
#include <future>
#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <optional>
#include <sys/resource.h>
#include <thread>
#include <utility>

namespace {

constexpr int taskTimeout = 20000; // milliseconds

/// The result of \a call, or nothing where none is reported.
std::optional<int> resultOf(std::function<int()> call)
{
    BackgroundTask task;
    QSignalSpy results(&task, &BackgroundTask::finished);
    task.start(std::move(call));
    if (!QTest::qWaitFor([&] { return !results.isEmpty(); }, taskTimeout))
        return std::nullopt;
    return results.constFirst().constFirst().toInt();
}

/// No file can be opened in this process while this lives.
class NoMoreFiles
{
public:
    NoMoreFiles()
    {
        ::getrlimit(RLIMIT_NOFILE, &m_before);
        const rlimit none = {0, m_before.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &none);
    }
    ~NoMoreFiles() { ::setrlimit(RLIMIT_NOFILE, &m_before); }
    NoMoreFiles(const NoMoreFiles &) = delete;
    NoMoreFiles &operator=(const NoMoreFiles &) = delete;

private:
    rlimit m_before = {};
};

} // namespace

TEST(BackgroundTaskTest, ReportsItsResultFromTheThreadThatStartedIt)
{
    BackgroundTask task;
    std::thread::id caller;
    std::thread::id reporter;
    int result = 0;
    QObject::connect(
        &task, &BackgroundTask::finished, &task,
        [&](int number) {
            reporter = std::this_thread::get_id();
            result = number;
        },
        Qt::DirectConnection);
    task.start([&caller] {
        caller = std::this_thread::get_id();
        return EHOSTUNREACH;
    });
    ASSERT_TRUE(QTest::qWaitFor([&] { return result != 0; }, taskTimeout));
    EXPECT_EQ(result, EHOSTUNREACH);
    EXPECT_EQ(reporter, std::this_thread::get_id());
    EXPECT_NE(caller, reporter);
}

TEST(BackgroundTaskTest, SuccessIsReportedToo)
{
    EXPECT_EQ(resultOf([] { return 0; }), 0);
}

TEST(BackgroundTaskTest, AnExceptionIsAResult)
{
    EXPECT_EQ(resultOf([]() -> int { throw std::bad_alloc(); }), ENOMEM);
}

TEST(BackgroundTaskTest, WithoutFilesItFailsAfterTheCallReturns)
{
    std::optional<BackgroundTask> task;
    {
        const NoMoreFiles limit;
        task.emplace();
    }
    QSignalSpy results(&*task, &BackgroundTask::finished);
    bool isCalled = false;
    task->start([&isCalled] {
        isCalled = true;
        return 0;
    });
    EXPECT_TRUE(results.isEmpty());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !results.isEmpty(); }, taskTimeout));
    EXPECT_EQ(results.constFirst().constFirst().toInt(), EMFILE);
    EXPECT_FALSE(isCalled);
}

TEST(BackgroundTaskTest, ItsEndWaitsForNobody)
{
    std::promise<void> release;
    std::promise<void> ended;
    auto task = std::make_unique<BackgroundTask>();
    task->start([&ended, gate = release.get_future().share()] {
        gate.wait();
        ended.set_value_at_thread_exit();
        return 0;
    });
    task.reset();
    release.set_value();
    EXPECT_EQ(ended.get_future().wait_for(std::chrono::milliseconds(taskTimeout)), std::future_status::ready);
}
