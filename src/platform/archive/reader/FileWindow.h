#pragma once

#include "FileDescriptor.h"

/// A part of a file in memory, which moves along as the file is read from front to back.
class FileWindow
{
public:
    static constexpr qsizetype mostBytes = 1 << 20;

    explicit FileWindow(const FileDescriptor &file)
        : m_file(file)
    {}

    /// \a size bytes (at most mostBytes) at \a offset, fewer at the end of the file; valid until the next
    /// call. Throws FileFailure.
    QByteArrayView at(qint64 offset, qsizetype size);

private:
    const FileDescriptor &m_file;
    QByteArray m_bytes;
    qint64 m_offset = 0; ///< of m_bytes
};
