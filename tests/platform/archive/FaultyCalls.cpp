#include "FaultyCalls.h"

#include <QMap>
#include <cerrno>
#include <chrono>
#include <climits>
#include <condition_variable>
#include <cstdarg>
#include <fcntl.h>
#include <libdeflate.h>
#include <mutex>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::chrono::seconds longestHold{10};

struct Fault
{
    int error = 0;
    int times = 0;
};

struct State
{
    bool isActive = false;
    QMap<FaultyCalls::Call, Fault> faults;
    QMap<FaultyCalls::Call, int> counts;
    std::optional<FaultyCalls::Call> heldCall;
    QByteArray heldPath;
    std::optional<qint64> room;
    int held = 0;
    bool isOverdue = false;
};

std::mutex mutex; // for the state
std::condition_variable changed;
State state;

/// The error that \a call is to fail with; 0 for none.
int enter(FaultyCalls::Call call, const char *path = nullptr)
{
    std::unique_lock lock(mutex);
    if (!state.isActive)
        return 0;
    ++state.counts[call];
    const auto isHeld = [&] {
        return state.heldCall == call && (state.heldPath.isEmpty() || state.heldPath == path);
    };
    if (isHeld()) {
        ++state.held;
        changed.notify_all();
        if (!changed.wait_for(lock, longestHold, [&] { return !isHeld(); }))
            state.isOverdue = true;
        --state.held;
        changed.notify_all();
    }
    const auto fault = state.faults.find(call);
    return fault != state.faults.end() && fault->times-- > 0 ? fault->error : 0;
}

/// How many of \a size bytes the disk takes.
size_t roomFor(size_t size)
{
    const std::lock_guard lock(mutex);
    if (!state.room)
        return size;
    const auto taken = size_t(qMin(*state.room, qint64(size)));
    *state.room -= qint64(taken);
    return taken;
}

QByteArray pathOf(int file)
{
    QByteArray path(PATH_MAX, Qt::Uninitialized);
    const QByteArray link = "/proc/self/fd/" + QByteArray::number(file);
    path.resize(qMax<ssize_t>(0, ::readlink(link.constData(), path.data(), size_t(path.size()))));
    return path;
}

int failed(int error)
{
    errno = error;
    return -1;
}

} // namespace

extern "C" {

// NOLINTBEGIN: the linker gives these names their meaning
int __real_open(const char *, int, ...);
int __real_stat(const char *, struct stat *);
ssize_t __real_pread(int, void *, size_t, off_t);
ssize_t __real_write(int, const void *, size_t);
ssize_t __real_pwrite(int, const void *, size_t, off_t);
ssize_t __real_copy_file_range(int, off_t *, int, off_t *, size_t, unsigned);
int __real_close(int);
int __real_fsync(int);
int __real_fdatasync(int);
int __real_renameat(int, const char *, int, const char *);
int __real_renameat2(int, const char *, int, const char *, unsigned);
int __real_linkat(int, const char *, int, const char *, int);
libdeflate_decompressor *__real_libdeflate_alloc_decompressor();

int __wrap_open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = flags & O_CREAT ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    const int error = enter(FaultyCalls::Open, path);
    return error ? failed(error) : __real_open(path, flags, mode);
}

int __wrap_stat(const char *path, struct stat *result)
{
    const int error = enter(FaultyCalls::Stat, path);
    return error ? failed(error) : __real_stat(path, result);
}

ssize_t __wrap_pread(int file, void *bytes, size_t size, off_t offset)
{
    const int error = enter(FaultyCalls::Read);
    return error ? failed(error) : __real_pread(file, bytes, size, offset);
}

ssize_t __wrap_write(int file, const void *bytes, size_t size)
{
    if (const int error = enter(FaultyCalls::Write))
        return failed(error);
    const size_t taken = roomFor(size);
    return taken == 0 && size > 0 ? failed(ENOSPC) : __real_write(file, bytes, taken);
}

ssize_t __wrap_pwrite(int file, const void *bytes, size_t size, off_t offset)
{
    if (const int error = enter(FaultyCalls::Write))
        return failed(error);
    const size_t taken = roomFor(size);
    return taken == 0 && size > 0 ? failed(ENOSPC) : __real_pwrite(file, bytes, taken, offset);
}

ssize_t __wrap_copy_file_range(int from, off_t *fromOffset, int to, off_t *toOffset, size_t size,
                               unsigned flags)
{
    const int error = enter(FaultyCalls::CopyRange);
    return error ? failed(error) : __real_copy_file_range(from, fromOffset, to, toOffset, size, flags);
}

int __wrap_close(int file)
{
    const int error = enter(FaultyCalls::Close, pathOf(file).constData());
    const int result = __real_close(file);
    return error ? failed(error) : result;
}

int __wrap_fsync(int file)
{
    const int error = enter(FaultyCalls::Fsync);
    return error ? failed(error) : __real_fsync(file);
}

int __wrap_fdatasync(int file)
{
    const int error = enter(FaultyCalls::Fdatasync);
    return error ? failed(error) : __real_fdatasync(file);
}

int __wrap_renameat(int fromFolder, const char *from, int toFolder, const char *to)
{
    const int error = enter(FaultyCalls::Rename, to);
    return error ? failed(error) : __real_renameat(fromFolder, from, toFolder, to);
}

int __wrap_renameat2(int fromFolder, const char *from, int toFolder, const char *to, unsigned flags)
{
    const int error = enter(FaultyCalls::RenameToFree);
    return error ? failed(error) : __real_renameat2(fromFolder, from, toFolder, to, flags);
}

int __wrap_linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags)
{
    const int error = enter(FaultyCalls::Link);
    return error ? failed(error) : __real_linkat(fromFolder, from, toFolder, to, flags);
}

libdeflate_decompressor *__wrap_libdeflate_alloc_decompressor()
{
    return enter(FaultyCalls::AllocateDecompressor) ? nullptr : __real_libdeflate_alloc_decompressor();
}
// NOLINTEND

} // extern "C"

FaultyCalls::FaultyCalls()
{
    const std::lock_guard lock(mutex);
    state = {};
    state.isActive = true;
}

FaultyCalls::~FaultyCalls()
{
    release();
    std::unique_lock lock(mutex);
    changed.wait(lock, [] { return state.held == 0; });
    state = {};
}

void FaultyCalls::fail(Call call, int error, int times) const
{
    const std::lock_guard lock(mutex);
    state.faults[call] = {error, times};
}

void FaultyCalls::leaveRoom(qint64 bytes) const
{
    const std::lock_guard lock(mutex);
    state.room = bytes;
}

void FaultyCalls::hold(Call call, const QByteArray &path) const
{
    const std::lock_guard lock(mutex);
    state.heldCall = call;
    state.heldPath = path;
}

void FaultyCalls::release() const
{
    const std::lock_guard lock(mutex);
    state.heldCall.reset();
    changed.notify_all();
}

int FaultyCalls::held() const
{
    const std::lock_guard lock(mutex);
    return state.held;
}

void FaultyCalls::waitUntilHeld() const
{
    std::unique_lock lock(mutex);
    changed.wait_for(lock, longestHold, [] { return state.held > 0; });
}

bool FaultyCalls::isOverdue() const
{
    const std::lock_guard lock(mutex);
    return state.isOverdue;
}

int FaultyCalls::count(Call call) const
{
    const std::lock_guard lock(mutex);
    return state.counts.value(call, 0);
}
