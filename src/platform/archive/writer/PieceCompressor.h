#pragma once

#include <QByteArray>
#include <libdeflate.h>
#include <memory>
#include <optional>

/// Compresses by libdeflate. It knows only whole streams, so the parts of a large file are made joinable
/// here: several threads can work on one file, and its parts one after the other are one stream.
class PieceCompressor
{
public:
    static constexpr qsizetype partSize = 1 << 20; ///< a good length for parts

    /// \a level is 1 to 9.
    explicit PieceCompressor(int level);

    /// \a data as a stream; nothing where that is not smaller.
    std::optional<QByteArray> compressWhole(QByteArrayView data);

    /// \a data, not empty, as a part of a stream, which goes on behind it unless it \a isLast.
    QByteArray compressPart(QByteArrayView data, bool isLast);

private:
    QByteArray compress(QByteArrayView data);
    QByteArray compressJoinable(QByteArrayView data);
    void makeJoinable(QByteArray &stream);

    std::unique_ptr<libdeflate_compressor, void (*)(libdeflate_compressor *)> m_compressor;
    QByteArray m_zeros; ///< a part that is all zeros, as sparse files have them, joinable
    QByteArray m_scratch;
};
