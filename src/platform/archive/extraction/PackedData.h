#pragma once

#include <QByteArray>

/// The data of one entry as it is in the archive, without encryption. It is read once, from front to back.
class PackedData
{
public:
    virtual ~PackedData() = default;

    /// The number of bytes read, fewer than \a size only at the end. Throws BadArchive and FileFailure.
    virtual qsizetype read(char *to, qsizetype size) = 0;
};
