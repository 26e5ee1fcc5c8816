#pragma once

#include "FileDescriptor.h"
#include "PackedData.h"

/// The data of an entry that is not encrypted, right from the archive's file.
class PlainData : public PackedData
{
public:
    PlainData(const FileDescriptor &file, qint64 offset, qint64 size)
        : m_file(file)
        , m_offset(offset)
        , m_end(offset + size)
    {}

    qsizetype read(char *to, qsizetype size) override;

private:
    const FileDescriptor &m_file;
    qint64 m_offset;
    qint64 m_end;
};
