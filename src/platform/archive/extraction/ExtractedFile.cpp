#include "ExtractedFile.h"

#include "FileFailure.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr qint64 worthReserving = 1 << 20;

} // namespace

ExtractedFile::ExtractedFile(const ExtractionTask &task)
    : m_task(task)
    , m_part(*m_task.folder)
{
    // A disk that has no room for a large file says so before anything is written.
    const auto size = qint64(m_task.entry->size);
    if (size >= worthReserving && ::fallocate(m_part.file().get(), FALLOC_FL_KEEP_SIZE, 0, size) != 0) {
        if (const FileFailure failure; failure.isFullDisk())
            throw failure;
    }
}

void ExtractedFile::finish()
{
    const int file = m_part.file().get();
    const int permissions = m_task.entry->permissions();
    ::fchmod(file, permissions != 0 ? mode_t(permissions) : m_task.ordinaryMode);
    const timespec times[] = {{0, UTIME_OMIT}, {time_t(m_task.entry->modified()), 0}};
    ::futimens(file, times); // not every file system keeps times; the data is what counts
    if (replaces())
        ::sync_file_range(file, 0, 0, SYNC_FILE_RANGE_WRITE);
}

void ExtractedFile::publish()
{
    if (replaces() && ::fdatasync(m_part.file().get()) != 0)
        throw FileFailure();
    m_part.publish(m_task.name, m_task.existing);
}
