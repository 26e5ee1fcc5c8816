#include "UpgradeFolder.h"

#include "CGUnzipFiles.h"
#include "FileNames.h"
#include "Folder.h"
#include "Paths.h"
#include "PendingFile.h"
#include "RuntimeError.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace {

constexpr mode_t readableByAll = 0666; // less what the user's mask takes away

/// Servers choose these names.
bool isFileName(const QString &name)
{
    constexpr char16_t firstPrintable = u' ';
    return !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..") &&
           std::none_of(name.begin(), name.end(),
                        [](QChar sign) { return sign == u'/' || sign == u'\\' || sign < firstPrintable; });
}

QString pathOf(const QString &name)
{
    if (!isFileName(name))
        throw RuntimeError(ErrorNumber::BadFileName, {}, name);
    return Folder::join(UpgradeFolder::path(), name);
}

Descriptor openFolder()
{
    const QString path = UpgradeFolder::path();
    Descriptor folder(::open(FileNames::toBytes(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen())
        throw RuntimeError::fromErrno(errno, path);
    return folder;
}

} // namespace

QString UpgradeFolder::path()
{
    return Paths::native(Paths::appPath() + QStringLiteral("\\upgrade"));
}

void UpgradeFolder::clear() noexcept
{
    try {
        const Descriptor folder = openFolder();
        PendingFile::sweep(folder.get());
        for (const QString &name : Folder::files(path(), Folder::Hidden::Skip))
            ::unlinkat(folder.get(), FileNames::toBytes(name).constData(), 0);
    } catch (...) { // what is left is replaced later, or not needed
        return;
    }
}

void UpgradeFolder::write(const QString &name, const QByteArray &bytes)
{
    const QString path = pathOf(name);
    const Descriptor folder = openFolder();
    try {
        PendingFile file(folder.get(), readableByAll);
        file.write(bytes);
        file.publish(FileNames::toBytes(name), PendingFile::Existing::Replace);
    } catch (const std::system_error &failure) {
        throw RuntimeError::fromErrno(failure.code().value(), path);
    }
}

qint64 UpgradeFolder::length(const QString &name)
{
    const QString path = pathOf(name);
    struct stat state = {};
    if (::lstat(FileNames::toBytes(path).constData(), &state) != 0)
        throw RuntimeError::fromErrno(errno, path);
    return state.st_size;
}

int UpgradeFolder::unpack(const QString &name)
{
    CGUnzipFiles archive;
    archive.ZipFileName = pathOf(name);
    archive.ExtractDir = path();
    archive.HonorDirectories = false;
    return archive.unzip();
}
