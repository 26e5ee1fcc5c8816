#include "FileDetails.h"

#include "FileNames.h"
#include "RuntimeError.h"

#include <cerrno>
#include <sys/stat.h>

FileDetails FileDetails::of(const QString &path)
{
    struct stat state = {};
    if (::stat(FileNames::toBytes(path).constData(), &state) != 0)
        throw RuntimeError::fromErrno(errno, path);
    return {state.st_size, QDateTime::fromSecsSinceEpoch(state.st_mtime)};
}
