#include "ForkedTask.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr unsigned longestRun = 10; // seconds; another thread's lock, held at the fork, is never freed here
constexpr int lowPriority = 10;

[[noreturn]] void runAndExit(const std::function<bool()> &step, pid_t parent)
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent)
        ::_exit(EXIT_FAILURE);
    ::signal(SIGALRM, SIG_DFL);
    ::alarm(longestRun);
    (void)::nice(lowPriority);
    bool hasSucceeded = false;
    try {
        hasSucceeded = step();
    } catch (...) {
        hasSucceeded = false;
    }
    ::_exit(hasSucceeded ? EXIT_SUCCESS : EXIT_FAILURE);
}

} // namespace

ForkedTask::~ForkedTask()
{
    stop();
}

bool ForkedTask::start(const std::function<bool()> &step)
{
    stop();
    const pid_t parent = ::getpid();
    const pid_t process = ::fork();
    if (process == 0)
        runAndExit(step, parent);
    m_hasSucceeded = false;
    if (process < 0)
        return false;
    m_process = process;
    return true;
}

bool ForkedTask::isRunning()
{
    return m_process != 0 && !reap(WNOHANG);
}

bool ForkedTask::wait()
{
    if (m_process != 0)
        reap(0);
    return m_hasSucceeded;
}

void ForkedTask::stop()
{
    if (m_process == 0)
        return;
    ::kill(m_process, SIGKILL);
    reap(0);
}

/// Returns false while the step runs.
bool ForkedTask::reap(int options)
{
    int status = 0;
    pid_t ended = 0;
    do {
        ended = ::waitpid(m_process, &status, options);
    } while (ended < 0 && errno == EINTR);
    if (ended == 0)
        return false;
    m_process = 0;
    m_hasSucceeded = ended > 0 && WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
    return true;
}
