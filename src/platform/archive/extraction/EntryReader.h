#pragma once

#include "ArchiveEntry.h"
#include "PackedData.h"

#include <functional>
#include <libdeflate.h>
#include <memory>
#include <zlib.h>

/// Unpacks the data of entries, one after the other, in pieces: small entries at once, which is quicker,
/// larger ones within fixed buffers. Never more comes out than the directory says, and the end is reached
/// only when length and checksum are right.
class EntryReader
{
public:
    EntryReader();
    ~EntryReader();
    EntryReader(const EntryReader &) = delete;
    EntryReader &operator=(const EntryReader &) = delete;

    /// Called before each read, for packed data that goes on and on while nothing is unpacked from it; what
    /// it throws ends next().
    using BetweenReads = std::function<void()>;

    /// All have to exist until the last call of next(). With \a isUnpacked the data comes unpacked already.
    /// Throws BadArchive where the method is not known here.
    void start(PackedData &data, const ArchiveEntry &entry, bool isUnpacked,
               const BetweenReads &betweenReads);

    /// The next piece, valid until the next call; empty at the end. Throws BadArchive and FileFailure.
    QByteArrayView next();

private:
    QByteArrayView readStored();
    QByteArrayView readWhole();
    QByteArrayView readInflated();
    void refill();
    qsizetype readPacked();
    void count(QByteArrayView piece);
    void checkEnd() const;

    enum class Way { Stored, Whole, Inflated };

    std::unique_ptr<libdeflate_decompressor, void (*)(libdeflate_decompressor *)> m_decompressor;
    z_stream m_stream = {};
    QByteArray m_packed;
    QByteArray m_unpacked;
    PackedData *m_data = nullptr;
    const BetweenReads *m_betweenReads = nullptr;
    const ArchiveEntry *m_entry = nullptr;
    Way m_way = Way::Stored;
    bool m_isAtEnd = false;
    quint64 m_size = 0; ///< so far
    quint32 m_crc = 0;
};
