#include "EntryReader.h"

#include "BadArchive.h"

#include <new>

namespace {

constexpr qsizetype mostWhole = 8 << 20; ///< packed and unpacked
constexpr qsizetype packedPiece = 256 << 10;
constexpr qsizetype unpackedPiece = 1 << 20;
constexpr int rawStream = -MAX_WBITS;
constexpr quint64 mostRatio = 1032; ///< what deflate can reach

bool isSmall(const ArchiveEntry &entry)
{
    return entry.size <= mostWhole && entry.packedSize <= mostWhole;
}

/// The directory promises more than so little data can become.
bool isImpossible(const ArchiveEntry &entry)
{
    return entry.method == ArchiveEntry::Stored ? entry.size > entry.packedSize
                                                : entry.size / mostRatio > entry.packedSize;
}

} // namespace

EntryReader::EntryReader()
    : m_decompressor(libdeflate_alloc_decompressor(), libdeflate_free_decompressor)
{
    if (!m_decompressor || inflateInit2(&m_stream, rawStream) != Z_OK)
        throw std::bad_alloc();
}

EntryReader::~EntryReader()
{
    inflateEnd(&m_stream);
}

void EntryReader::start(PackedData &data, const ArchiveEntry &entry, bool isUnpacked,
                        const BetweenReads &betweenReads)
{
    if (!isUnpacked && entry.method != ArchiveEntry::Stored && entry.method != ArchiveEntry::Deflated)
        throw BadArchive{"its compression method is not supported", BadArchive::Unsupported};
    if (!isUnpacked && isImpossible(entry))
        throw BadArchive{"it is smaller than the archive says"};
    m_data = &data;
    m_betweenReads = &betweenReads;
    m_entry = &entry;
    m_way = isUnpacked || entry.method == ArchiveEntry::Stored ? Way::Stored
            : isSmall(entry)                                   ? Way::Whole
                                                               : Way::Inflated;
    m_isAtEnd = false;
    m_size = 0;
    m_crc = libdeflate_crc32(0, nullptr, 0);
    m_stream.avail_in = 0;
    inflateReset(&m_stream);
}

QByteArrayView EntryReader::next()
{
    if (m_isAtEnd)
        return {};
    const QByteArrayView piece = m_way == Way::Stored  ? readStored()
                                 : m_way == Way::Whole ? readWhole()
                                                       : readInflated();
    count(piece);
    if (m_isAtEnd)
        checkEnd();
    return piece;
}

QByteArrayView EntryReader::readStored()
{
    m_unpacked.resize(unpackedPiece);
    const qsizetype got = m_data->read(m_unpacked.data(), m_unpacked.size());
    m_isAtEnd = got == 0;
    return QByteArrayView(m_unpacked).first(got);
}

QByteArrayView EntryReader::readWhole()
{
    m_packed.resize(qsizetype(m_entry->packedSize));
    m_unpacked.resize(qsizetype(m_entry->size));
    m_packed.resize(m_data->read(m_packed.data(), m_packed.size()));
    char past;
    m_data->read(&past, 1); // reaching the end is what makes encrypted data checked
    std::size_t got = 0;
    const libdeflate_result result = libdeflate_deflate_decompress(
        m_decompressor.get(), m_packed.constData(), std::size_t(m_packed.size()), m_unpacked.data(),
        std::size_t(m_unpacked.size()), &got);
    if (result == LIBDEFLATE_INSUFFICIENT_SPACE)
        throw BadArchive{"it is larger than the archive says"};
    if (result != LIBDEFLATE_SUCCESS)
        throw BadArchive{"its data is damaged"};
    m_isAtEnd = true;
    return QByteArrayView(m_unpacked).first(qsizetype(got));
}

QByteArrayView EntryReader::readInflated()
{
    m_unpacked.resize(unpackedPiece);
    m_stream.next_out = reinterpret_cast<Bytef *>(m_unpacked.data());
    m_stream.avail_out = uInt(unpackedPiece);
    while (m_stream.avail_out > 0) {
        if (m_stream.avail_in == 0)
            refill();
        const int result = inflate(&m_stream, Z_NO_FLUSH);
        if (result == Z_STREAM_END) {
            while (readPacked() > 0) // as in readWhole()
                continue;
            m_isAtEnd = true;
            break;
        }
        if (result != Z_OK)
            throw BadArchive{"its data is damaged"};
    }
    return QByteArrayView(m_unpacked).first(unpackedPiece - qsizetype(m_stream.avail_out));
}

void EntryReader::refill()
{
    const qsizetype got = readPacked();
    if (got == 0)
        throw BadArchive{"its data is damaged"};
    m_stream.next_in = reinterpret_cast<Bytef *>(m_packed.data());
    m_stream.avail_in = uInt(got);
}

/// The next packed bytes, into m_packed.
qsizetype EntryReader::readPacked()
{
    (*m_betweenReads)();
    m_packed.resize(packedPiece);
    return m_data->read(m_packed.data(), packedPiece);
}

void EntryReader::count(QByteArrayView piece)
{
    m_size += quint64(piece.size());
    if (m_size > m_entry->size)
        throw BadArchive{"it is larger than the archive says"};
    m_crc = libdeflate_crc32(m_crc, piece.data(), std::size_t(piece.size()));
}

void EntryReader::checkEnd() const
{
    if (m_size != m_entry->size)
        throw BadArchive{"it is smaller than the archive says"};
    if (m_entry->hasCrc() && m_crc != m_entry->crc)
        throw BadArchive{"its checksum is wrong"};
}
