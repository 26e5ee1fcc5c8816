#pragma once

#include "FileDescriptor.h"
#include "LibzipSource.h"

/// An archive's file as libzip reads it. What is before the archive is hidden from libzip, which knows no
/// archive with a prefix.
class ArchiveSource : public LibzipSource
{
public:
    /// Without an open \a file there is no archive yet. The file has to exist for as long as this object.
    ArchiveSource(const FileDescriptor &file, qint64 prefix);

    /// Opens the archive; null where libzip cannot read it. This object has to exist for as long as the
    /// archive. \a flags are those of zip_open.
    zip_t *open(int flags);

protected:
    zip_int64_t handle(zip_source_cmd_t command, void *data, zip_uint64_t size) override;
    virtual zip_int64_t supported() const;

    const FileDescriptor &file() const { return m_file; }
    qint64 prefix() const { return m_prefix; }

private:
    zip_int64_t read(void *to, zip_uint64_t size);
    zip_int64_t seek(void *arguments, zip_uint64_t size);
    zip_int64_t stat(zip_stat_t &state);
    qint64 size() const { return m_file.isOpen() ? m_file.size() - m_prefix : 0; }

    const FileDescriptor &m_file;
    qint64 m_prefix;
    qint64 m_position = 0;
};
