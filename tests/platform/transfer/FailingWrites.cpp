#include "FailingWrites.h"

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

int writeError = 0; // 0 for none
qint64 bytesLeft = 0;

bool isRegular(int file)
{
    struct stat state = {};
    return ::fstat(file, &state) == 0 && S_ISREG(state.st_mode);
}

} // namespace

FailingWrites::FailingWrites(int error, qint64 bytes)
{
    writeError = error;
    bytesLeft = bytes;
}

FailingWrites::~FailingWrites()
{
    writeError = 0;
}

// The linker takes this in place of the C library's.
extern "C" ssize_t write(int file, const void *bytes, size_t count)
{
    const bool isLimited = writeError != 0 && isRegular(file);
    if (isLimited && count > 0 && bytesLeft == 0) {
        errno = writeError;
        return -1;
    }
    if (isLimited)
        count = std::min(count, size_t(bytesLeft));
    const ssize_t taken = ::syscall(SYS_write, file, bytes, count);
    if (isLimited && taken > 0)
        bytesLeft -= taken;
    return taken;
}
