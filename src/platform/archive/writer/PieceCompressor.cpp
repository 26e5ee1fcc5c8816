#include "PieceCompressor.h"

#include <cstring>
#include <new>
#include <zlib.h>

namespace {

constexpr int rawDeflate = -MAX_WBITS;

bool isZeros(QByteArrayView data)
{
    return data[0] == 0 && std::memcmp(data.data(), data.data() + 1, std::size_t(data.size() - 1)) == 0;
}

struct BlockEnds
{
    qsizetype lastBlock = 0; ///< the bit at which the last block begins
    qsizetype end = 0;       ///< the bit behind the last block
};

/// Follows the blocks of a stream by unpacking it, a small part of the time that packing takes. \a scratch
/// takes the unpacked data.
BlockEnds findBlocks(QByteArray &stream, QByteArray &scratch)
{
    constexpr int unusedBits = 7;
    constexpr int isInLastBlock = 64;
    constexpr int isAtBlockEnd = 128;
    z_stream state = {};
    if (inflateInit2(&state, rawDeflate) != Z_OK)
        throw std::bad_alloc();
    state.next_in = reinterpret_cast<Bytef *>(stream.data());
    state.avail_in = uInt(stream.size());
    state.next_out = reinterpret_cast<Bytef *>(scratch.data());
    state.avail_out = uInt(scratch.size());
    BlockEnds blocks;
    while (inflate(&state, Z_BLOCK) == Z_OK) {
        if (!(state.data_type & isAtBlockEnd))
            continue;
        const qsizetype at = qsizetype(state.total_in) * 8 - (state.data_type & unusedBits);
        blocks.end = at;
        if (state.data_type & isInLastBlock)
            break;
        blocks.lastBlock = at;
    }
    inflateEnd(&state);
    return blocks;
}

} // namespace

PieceCompressor::PieceCompressor(int level)
    : m_compressor(libdeflate_alloc_compressor(level), libdeflate_free_compressor)
{
    if (!m_compressor)
        throw std::bad_alloc();
}

std::optional<QByteArray> PieceCompressor::compressWhole(QByteArrayView data)
{
    QByteArray stream(data.size(), Qt::Uninitialized);
    const std::size_t size = libdeflate_deflate_compress(
        m_compressor.get(), data.data(), std::size_t(data.size()), stream.data(), std::size_t(stream.size()));
    if (size == 0 || qsizetype(size) >= data.size())
        return {};
    stream.resize(qsizetype(size));
    stream.squeeze();
    return stream;
}

QByteArray PieceCompressor::compressPart(QByteArrayView data, bool isLast)
{
    if (isLast)
        return compress(data);
    if (data.size() != partSize || !isZeros(data))
        return compressJoinable(data);
    if (m_zeros.isEmpty())
        m_zeros = compressJoinable(data);
    return m_zeros;
}

QByteArray PieceCompressor::compress(QByteArrayView data)
{
    const std::size_t most = libdeflate_deflate_compress_bound(m_compressor.get(), std::size_t(data.size()));
    QByteArray stream(qsizetype(most), Qt::Uninitialized);
    stream.resize(qsizetype(libdeflate_deflate_compress(m_compressor.get(), data.data(),
                                                        std::size_t(data.size()), stream.data(), most)));
    return stream;
}

QByteArray PieceCompressor::compressJoinable(QByteArrayView data)
{
    QByteArray stream = compress(data);
    m_scratch.resize(data.size());
    makeJoinable(stream);
    stream.squeeze();
    return stream;
}

/// Takes the mark off the last block and adds an empty stored block, which ends at a byte.
void PieceCompressor::makeJoinable(QByteArray &stream)
{
    constexpr int blockHeader = 3; // bits; all of them 0 for a stored block that is not the last
    const BlockEnds blocks = findBlocks(stream, m_scratch);
    stream[blocks.lastBlock / 8] =
        char(uchar(stream[blocks.lastBlock / 8]) & ~(1u << (blocks.lastBlock % 8)));
    stream.resize((blocks.end + blockHeader + 7) / 8, '\0');
    stream += QByteArrayLiteral("\x00\x00\xff\xff");
}
