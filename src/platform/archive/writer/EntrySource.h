#pragma once

#include "CompressionQueue.h"
#include "LibzipSource.h"

#include <functional>

/// The data of one new entry, on its way from the queue into the archive.
class EntrySource : public LibzipSource
{
public:
    /// What the owner hears, while the entry is written. What the functions throw ends the job.
    struct Events
    {
        std::function<void(const EntrySource &)> begin;
        std::function<void()> betweenPieces; ///< also again and again while the next one is waited for
        std::function<void(const EntrySource &)> end;
    };

    /// All have to exist for as long as this object. libzip has to read the sources in the order of the
    /// queue.
    EntrySource(const SourceFile &file, CompressionQueue &queue, const Events &events);

    /// Where the entry is, as soon as that is known: libzip is asked there not to compress.
    void setPlace(zip_t *archive, zip_uint64_t index);

    const SourceFile &file() const { return m_file; }
    bool isDeflated() const { return m_piece.isDeflated; }
    qint64 size() const { return m_size; }
    qint64 packedSize() const { return m_packedSize; }

protected:
    zip_int64_t handle(zip_source_cmd_t command, void *data, zip_uint64_t size) override;

private:
    void begin();
    void takePiece();
    zip_int64_t stat(zip_stat_t &state);
    zip_int64_t read(char *to, qsizetype size);

    const SourceFile &m_file;
    CompressionQueue &m_queue;
    const Events &m_events;
    zip_t *m_archive = nullptr;
    zip_uint64_t m_index = 0;
    CompressedPiece m_piece;
    bool m_isBegun = false;
    qsizetype m_position = 0; ///< in m_piece
    qint64 m_size = 0;        ///< of the pieces so far
    qint64 m_packedSize = 0;
    quint32 m_crc = 0;
};
