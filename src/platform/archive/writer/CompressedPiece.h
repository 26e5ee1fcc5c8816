#pragma once

#include <QByteArray>
#include <exception>

struct SourceFile;

/// A file, or a part of a large one, as it comes into the archive.
struct CompressedPiece
{
    const SourceFile *file = nullptr;
    QByteArray bytes;
    qint64 size = 0; ///< before compression
    quint32 crc = 0; ///< of these bytes alone
    bool isDeflated = false;
    bool isWhole = false;
    bool isLast = false;
    qint64 fileSize = -1;       ///< of the whole file; -1 where it is known only at the end
    std::exception_ptr failure; ///< null for success
};
