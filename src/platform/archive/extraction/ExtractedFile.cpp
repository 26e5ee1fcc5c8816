#include "ExtractedFile.h"

#include "FileFailure.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr qint64 worthReserving = 1 << 20;

} // namespace

ExtractedFile::ExtractedFile(TargetFolder::Folder folder, const ArchiveEntry &entry)
    : m_folder(std::move(folder))
    , m_entry(entry)
    , m_part(*m_folder)
{
    // A disk that has no room for a large file says so before anything is written.
    if (qint64(entry.size) >= worthReserving &&
        ::fallocate(m_part.file().get(), FALLOC_FL_KEEP_SIZE, 0, qint64(entry.size)) != 0) {
        if (const FileFailure failure; failure.isFullDisk())
            throw failure;
    }
}

void ExtractedFile::publish(const QByteArray &name, PartFile::Existing existing, mode_t ordinaryMode)
{
    const int file = m_part.file().get();
    const int permissions = m_entry.permissions();
    ::fchmod(file, permissions != 0 ? mode_t(permissions) : ordinaryMode);
    const timespec times[] = {{0, UTIME_OMIT}, {time_t(m_entry.modified()), 0}};
    ::futimens(file, times); // not every file system keeps times; the data is what counts
    // What there was is lost only for what is on the disk. A new file takes nothing's place and does not
    // wait.
    if (existing == PartFile::Existing::Replace && ::fdatasync(file) != 0)
        throw FileFailure();
    m_part.publish(name, existing);
}
