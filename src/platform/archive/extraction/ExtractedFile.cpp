#include "ExtractedFile.h"

#include "FileFailure.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr qint64 worthReserving = 1 << 20;
constexpr mode_t privateMode = 0600; // until the file is whole

} // namespace

ExtractedFile::ExtractedFile(const ExtractionTask &task)
    : m_task(task)
    , m_file(FileFailure::translated([&] { return PendingFile(m_task.folder->get(), privateMode); }))
{
    // A disk that has no room for a large file says so before anything is written.
    const auto size = qint64(m_task.entry->size);
    if (size >= worthReserving && ::fallocate(m_file.file(), FALLOC_FL_KEEP_SIZE, 0, size) != 0) {
        if (const FileFailure failure; failure.isFullDisk())
            throw failure;
    }
}

void ExtractedFile::write(QByteArrayView bytes)
{
    FileFailure::translated([&] { m_file.write(bytes); });
}

void ExtractedFile::finish()
{
    const int permissions = m_task.entry->permissions();
    ::fchmod(m_file.file(), permissions != 0 ? mode_t(permissions) : m_task.ordinaryMode);
    m_file.setModified(time_t(m_task.entry->modified()));
    if (replaces())
        ::sync_file_range(m_file.file(), 0, 0, SYNC_FILE_RANGE_WRITE);
}

void ExtractedFile::publish()
{
    if (replaces() && ::fdatasync(m_file.file()) != 0)
        throw FileFailure();
    FileFailure::translated([&] { m_file.publish(m_task.name, m_task.existing); });
}
