#include "ArchiveSource.h"

#include <cerrno>

ArchiveSource::ArchiveSource(const FileDescriptor &file, qint64 prefix)
    : m_file(file)
    , m_prefix(prefix)
{}

zip_t *ArchiveSource::open(int flags)
{
    zip_source_t *source = create();
    zip_t *archive = source ? zip_open_from_source(source, flags, error()) : nullptr;
    if (source && !archive)
        zip_source_free(source);
    return archive;
}

zip_int64_t ArchiveSource::supported() const
{
    return ZIP_SOURCE_SUPPORTS_SEEKABLE;
}

zip_int64_t ArchiveSource::handle(zip_source_cmd_t command, void *data, zip_uint64_t size)
{
    switch (command) {
    case ZIP_SOURCE_SUPPORTS:
        return supported();
    case ZIP_SOURCE_OPEN:
        m_position = 0;
        return 0;
    case ZIP_SOURCE_READ:
        return read(data, size);
    case ZIP_SOURCE_SEEK:
        return seek(data, size);
    case ZIP_SOURCE_TELL:
        return m_position;
    case ZIP_SOURCE_STAT:
        return stat(*static_cast<zip_stat_t *>(data));
    case ZIP_SOURCE_CLOSE:
    case ZIP_SOURCE_FREE:
        return 0;
    default:
        return fail(ZIP_ER_OPNOTSUPP, 0);
    }
}

zip_int64_t ArchiveSource::read(void *to, zip_uint64_t size)
{
    const qsizetype got = m_file.readAt(m_prefix + m_position, static_cast<char *>(to), qsizetype(size));
    m_position += got;
    return got;
}

zip_int64_t ArchiveSource::seek(void *arguments, zip_uint64_t size)
{
    const zip_int64_t position = zip_source_seek_compute_offset(
        zip_uint64_t(m_position), zip_uint64_t(this->size()), arguments, size, error());
    if (position < 0)
        return -1;
    m_position = position;
    return 0;
}

zip_int64_t ArchiveSource::stat(zip_stat_t &state)
{
    if (!m_file.isOpen())
        return fail(ZIP_ER_READ, ENOENT); // which means that the archive is to be made
    zip_stat_init(&state);
    state.size = zip_uint64_t(size());
    state.valid = ZIP_STAT_SIZE;
    return sizeof state;
}
