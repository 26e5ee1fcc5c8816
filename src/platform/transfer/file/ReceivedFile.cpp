#include "ReceivedFile.h"

#include "TransferFailure.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>

namespace {

constexpr mode_t ordinaryMode = 0666;

[[noreturn]] void failWith(int error)
{
    throw TransferFailure::ofErrno(error);
}

/// Runs \a step, whose error becomes the command's.
template<class Step>
auto translated(Step step)
{
    try {
        return step();
    } catch (const std::system_error &failure) {
        failWith(failure.code().value());
    }
}

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

Descriptor openFolder(const QByteArray &path)
{
    Descriptor folder(::open(path.constData(), folderFlags));
    if (!folder.isOpen())
        failWith(errno == ENOENT ? ENOTDIR : errno);
    return folder;
}

void requireFree(const Descriptor &folder, const QByteArray &name)
{
    struct stat state = {};
    if (::fstatat(folder.get(), name.constData(), &state, AT_SYMLINK_NOFOLLOW) == 0)
        failWith(EEXIST);
    if (errno != ENOENT)
        failWith(errno);
}

PendingFile begin(const QByteArray &path, const QByteArray &name)
{
    const Descriptor folder = openFolder(path);
    requireFree(folder, name);
    return translated([&] { return PendingFile(folder.get(), ordinaryMode); });
}

} // namespace

ReceivedFile::ReceivedFile(const QByteArray &folder, const QByteArray &name)
    : m_name(name)
    , m_file(begin(folder, name))
{}

bool ReceivedFile::sweep(const QByteArray &folder) noexcept
{
    const Descriptor opened(::open(folder.constData(), folderFlags));
    if (opened.isOpen())
        PendingFile::sweep(opened.get());
    return opened.isOpen();
}

void ReceivedFile::write(QByteArrayView bytes)
{
    translated([&] { m_file.write(bytes); });
}

void ReceivedFile::publish()
{
    translated([&] { m_file.publish(m_name, PendingFile::Existing::Keep); });
}
