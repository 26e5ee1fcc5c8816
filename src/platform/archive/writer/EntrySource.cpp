#include "EntrySource.h"

#include "JobEnd.h"
#include "ZipResult.h"

#include <cstring>
#include <zlib.h>

EntrySource::EntrySource(const SourceFile &file, CompressionQueue &queue, const Events &events)
    : m_file(file)
    , m_queue(queue)
    , m_events(events)
{}

void EntrySource::setPlace(zip_t *archive, zip_uint64_t index)
{
    m_archive = archive;
    m_index = index;
}

zip_int64_t EntrySource::handle(zip_source_cmd_t command, void *data, zip_uint64_t size)
{
    switch (command) {
    case ZIP_SOURCE_SUPPORTS:
        return ZIP_SOURCE_SUPPORTS_READABLE;
    case ZIP_SOURCE_STAT:
        begin();
        return stat(*static_cast<zip_stat_t *>(data));
    case ZIP_SOURCE_READ:
        return read(static_cast<char *>(data), qsizetype(size));
    case ZIP_SOURCE_CLOSE:
        m_piece.bytes.clear();
        m_events.end(*this);
        return 0;
    case ZIP_SOURCE_OPEN:
    case ZIP_SOURCE_FREE:
        return 0;
    default:
        return fail(ZIP_ER_OPNOTSUPP, 0);
    }
}

/// libzip asks for the numbers before it reads, and begins with them.
void EntrySource::begin()
{
    if (m_isBegun)
        return;
    m_isBegun = true;
    m_events.begin(*this);
    takePiece();
    if (!m_piece.isDeflated)
        zip_set_file_compression(m_archive, m_index, ZIP_CM_STORE, 0); // else libzip would try again
}

void EntrySource::takePiece()
{
    m_piece = m_queue.take(m_events.betweenPieces);
    if (m_piece.file != &m_file)
        throw JobEnd{ZipResult::Internal};
    m_position = 0;
    m_crc = m_size == 0 ? m_piece.crc : quint32(crc32_combine(m_crc, m_piece.crc, m_piece.size));
    m_size += m_piece.size;
    m_packedSize += m_piece.bytes.size();
}

/// Before the end of a large file only its length is known, and that only if it is not converted.
zip_int64_t EntrySource::stat(zip_stat_t &state)
{
    zip_stat_init(&state);
    state.mtime = m_file.modified;
    state.comp_method = m_piece.isDeflated ? ZIP_CM_DEFLATE : ZIP_CM_STORE;
    state.encryption_method = ZIP_EM_NONE;
    state.valid = ZIP_STAT_MTIME | ZIP_STAT_COMP_METHOD | ZIP_STAT_ENCRYPTION_METHOD;
    if (m_piece.isLast) {
        state.size = zip_uint64_t(m_size);
        state.comp_size = zip_uint64_t(m_packedSize);
        state.crc = m_crc;
        state.valid |= ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE | ZIP_STAT_CRC;
    } else if (m_piece.fileSize >= 0) {
        state.size = zip_uint64_t(m_piece.fileSize);
        state.valid |= ZIP_STAT_SIZE;
    }
    return sizeof state;
}

zip_int64_t EntrySource::read(char *to, qsizetype size)
{
    while (m_position == m_piece.bytes.size()) {
        if (m_piece.isLast)
            return 0;
        m_events.betweenPieces();
        takePiece();
    }
    const qsizetype count = qMin(size, m_piece.bytes.size() - m_position);
    std::memcpy(to, m_piece.bytes.constData() + m_position, std::size_t(count));
    m_position += count;
    return count;
}
