#include "ArchiveRewrite.h"

#include "FileFailure.h"
#include "FileMode.h"
#include "WorkerThreads.h"

#include <QByteArrayList>
#include <fcntl.h>
#include <future>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

constexpr qint64 writtenAtOnce = 1 << 20;
constexpr mode_t setIds = S_ISUID | S_ISGID;

void checkCall(bool isDone)
{
    if (!isDone)
        throw FileFailure();
}

/// Access lists are such attributes too. Some of a file's may be the system's own, and cannot be set.
void copyAttributes(int from, int to)
{
    QByteArray names(qMax<ssize_t>(0, ::flistxattr(from, nullptr, 0)), Qt::Uninitialized);
    names.resize(qMax<ssize_t>(0, ::flistxattr(from, names.data(), size_t(names.size()))));
    for (const QByteArray &name : names.split('\0')) {
        const ssize_t size = name.isEmpty() ? -1 : ::fgetxattr(from, name.constData(), nullptr, 0);
        if (size < 0)
            continue;
        QByteArray value(size, Qt::Uninitialized);
        if (::fgetxattr(from, name.constData(), value.data(), size_t(size)) == size)
            ::fsetxattr(to, name.constData(), value.constData(), size_t(size), 0);
    }
}

} // namespace

ArchiveRewrite::ArchiveRewrite(const QByteArray &path, const FileDescriptor &old, qint64 prefix,
                               std::function<void()> betweenPieces)
    : ArchiveSource(old, prefix)
    , m_folder(FileDescriptor::openFolderOf(path))
    , m_name(path.sliced(path.lastIndexOf('/') + 1))
    , m_betweenPieces(std::move(betweenPieces))
{
    PartFile::sweep(m_folder);
}

zip_int64_t ArchiveRewrite::supported() const
{
    return ZIP_SOURCE_SUPPORTS_WRITABLE | ZIP_SOURCE_MAKE_COMMAND_BITMASK(ZIP_SOURCE_BEGIN_WRITE_CLONING);
}

zip_int64_t ArchiveRewrite::handle(zip_source_cmd_t command, void *data, zip_uint64_t size)
{
    switch (command) {
    case ZIP_SOURCE_READ:
        m_betweenPieces();
        return ArchiveSource::handle(command, data, size);
    case ZIP_SOURCE_BEGIN_WRITE:
        begin();
        return 0;
    case ZIP_SOURCE_BEGIN_WRITE_CLONING:
        begin();
        copyOld(qint64(size));
        return 0;
    case ZIP_SOURCE_WRITE:
        write(QByteArrayView(static_cast<const char *>(data), qsizetype(size)));
        return zip_int64_t(size);
    case ZIP_SOURCE_SEEK_WRITE:
        return seekNew(data, size);
    case ZIP_SOURCE_TELL_WRITE:
        return m_position - prefix();
    case ZIP_SOURCE_COMMIT_WRITE:
        commit();
        return 0;
    case ZIP_SOURCE_ROLLBACK_WRITE:
        m_new.reset();
        return 0;
    case ZIP_SOURCE_REMOVE:
        remove();
        return 0;
    default:
        return ArchiveSource::handle(command, data, size);
    }
}

void ArchiveRewrite::begin()
{
    // libzip goes on by copying everything where the first way has failed; a cancelled job must not.
    if (failure())
        std::rethrow_exception(failure());
    m_new = std::make_unique<PartFile>(m_folder);
    m_position = m_size = m_begun = 0;
    if (prefix() > 0)
        copyOld(0);
}

/// What the old file has before and in the first \a size bytes of its archive stays as it is; the kernel
/// copies it.
void ArchiveRewrite::copyOld(qint64 size)
{
    const qint64 end = prefix() + size;
    while (m_size < end) {
        m_betweenPieces();
        loff_t from = m_size;
        loff_t to = m_size;
        const ssize_t copied = ::copy_file_range(file().get(), &from, m_new->file().get(), &to,
                                                 size_t(qMin(writtenAtOnce, end - m_size)), 0);
        checkCall(copied >= 0);
        if (copied == 0)
            throw FileFailure(EIO); // the old file has become shorter
        m_size += copied;
    }
    m_position = m_size;
}

void ArchiveRewrite::write(QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const ssize_t taken = ::pwrite(m_new->file().get(), bytes.data(), size_t(bytes.size()), m_position);
        if (taken < 0 && errno == EINTR)
            continue;
        checkCall(taken >= 0);
        m_position += taken;
        bytes = bytes.sliced(taken);
    }
    m_size = qMax(m_size, m_position);
    if (m_size - m_begun < writtenAtOnce)
        return;
    ::sync_file_range(m_new->file().get(), m_begun, m_size - m_begun, SYNC_FILE_RANGE_WRITE);
    m_begun = m_size;
    m_betweenPieces();
}

zip_int64_t ArchiveRewrite::seekNew(void *arguments, zip_uint64_t size)
{
    const zip_int64_t position = zip_source_seek_compute_offset(
        zip_uint64_t(m_position - prefix()), zip_uint64_t(m_size - prefix()), arguments, size, error());
    if (position < 0)
        return -1;
    m_position = prefix() + position;
    return 0;
}

void ArchiveRewrite::commit()
{
    takeOldAttributes();
    sync(m_new->file());
    m_new->publish(m_name, PartFile::Existing::Replace);
    try {
        sync(m_folder); // the rename itself has to last; not every file system offers it
    } catch (...) {
    } // the archive is there
}

void ArchiveRewrite::takeOldAttributes() const
{
    const int target = m_new->file().get();
    if (!file().isOpen()) {
        checkCall(::fchmod(target, FileMode::ordinary()) == 0);
        return;
    }
    struct stat old = {};
    checkCall(::fstat(file().get(), &old) == 0);
    const bool isOwner = ::fchown(target, old.st_uid, old.st_gid) == 0;
    checkCall(::fchmod(target, old.st_mode & (isOwner ? 07777 : 07777 & ~setIds)) == 0);
    copyAttributes(file().get(), target);
}

/// On a thread of its own, so that a slow disk holds nobody up.
void ArchiveRewrite::sync(const FileDescriptor &file) const
{
    const auto sync = [descriptor = file.get()] { return ::fsync(descriptor) == 0 ? 0 : errno; };
    std::future<int> error = std::async(std::launch::async, sync);
    while (error.wait_for(WorkerThreads::longestWait) != std::future_status::ready)
        m_betweenPieces();
    if (const int code = error.get(); code != 0)
        throw FileFailure(code);
}

/// The archive has no entry left.
void ArchiveRewrite::remove() const
{
    checkCall(::unlinkat(m_folder.get(), m_name.constData(), 0) == 0);
}
