#pragma once

#include <QByteArray>
#include <optional>

/// One entry of an archive that ArchiveMaker makes. What is not set is right.
struct MadeEntry
{
    QByteArray name;
    QByteArray data; ///< before compression
    bool isDeflated = false;
    quint8 system = 3;                   ///< who made it: 0 DOS, 3 Unix
    quint32 attributes = 0100644u << 16; ///< for Unix: the mode in the high half
    quint16 flags = 0;
    quint16 dosTime = 0x4d00; ///< 09:40
    quint16 dosDate = 0x306c; ///< 2004-03-12
    QByteArray extra;         ///< of the directory alone
    std::optional<QByteArray> localName;
    std::optional<quint16> localMethod;
    std::optional<quint16> method;
    std::optional<quint32> crc;
    std::optional<quint64> size;
    std::optional<quint64> packedSize; ///< in the directory
    std::optional<qint64> offset;      ///< in the directory
    bool is64 = false;                 ///< its numbers are in the 64-bit field
    bool hasDescriptor = false;        ///< its numbers are behind the data
};
