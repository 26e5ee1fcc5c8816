#include "UpdateInstaller.h"

#include "FileNames.h"
#include "Paths.h"
#include "RuntimeError.h"

#include <QProcess>
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool isOwnProgram(const struct stat &file)
{
    constexpr mode_t writableByOthers = S_IWGRP | S_IWOTH;
    return S_ISREG(file.st_mode) && file.st_uid == ::geteuid() && (file.st_mode & S_IXUSR) != 0 &&
           (file.st_mode & writableByOthers) == 0;
}

} // namespace

void UpdateInstaller::start()
{
    const QString path = Paths::native(Paths::appPath() + QStringLiteral("\\update.exe"));
    struct stat file = {};
    if (::lstat(FileNames::toBytes(path).constData(), &file) != 0)
        throw RuntimeError::fromErrno(errno, path);
    if (!isOwnProgram(file))
        throw RuntimeError(ErrorNumber::PermissionDenied, {}, path);
    if (!QProcess::startDetached(path, {}, Paths::native(Paths::appPath())))
        throw RuntimeError(ErrorNumber::PathFileAccessError, {}, path);
}
