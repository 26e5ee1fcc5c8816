#include "FailingCalls.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

struct Failure
{
    int error = 0;
    int times = 0;
};

std::array<Failure, 6> failures;
std::atomic<bool> isSyncHeld = false;
std::atomic<int> syncCount = 0;

template<class... Args>
int perform(FailingCalls::Call call, long number, Args... args)
{
    Failure &failure = failures[call];
    if (failure.times == 0)
        return int(::syscall(number, args...));
    --failure.times;
    errno = failure.error;
    return -1;
}

} // namespace

FailingCalls::~FailingCalls()
{
    failures = {};
    holdSync(false);
}

void FailingCalls::fail(Call call, int error, int times)
{
    failures[call] = {error, times};
}

void FailingCalls::holdSync(bool isHeld)
{
    isSyncHeld = isHeld;
    isSyncHeld.notify_all();
}

int FailingCalls::syncs() const
{
    return syncCount;
}

// The linker takes these in place of the C library's.
extern "C" {

int renameat2(int oldFolder, const char *from, int newFolder, const char *to, unsigned flags) noexcept
{
    return perform(FailingCalls::RenameToFree, SYS_renameat2, oldFolder, from, newFolder, to, flags);
}

int renameat(int oldFolder, const char *from, int newFolder, const char *to) noexcept
{
    return perform(FailingCalls::Rename, SYS_renameat2, oldFolder, from, newFolder, to, 0);
}

int linkat(int oldFolder, const char *from, int newFolder, const char *to, int flags) noexcept
{
    return perform(FailingCalls::Link, SYS_linkat, oldFolder, from, newFolder, to, flags);
}

int unlinkat(int folder, const char *name, int flags) noexcept
{
    return perform(FailingCalls::Unlink, SYS_unlinkat, folder, name, flags);
}

int close(int file)
{
    return perform(FailingCalls::Close, SYS_close, file);
}

int fsync(int file)
{
    ++syncCount;
    isSyncHeld.wait(true);
    return perform(FailingCalls::Sync, SYS_fsync, file);
}
}
