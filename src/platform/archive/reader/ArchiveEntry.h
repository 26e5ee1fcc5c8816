#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

/// One entry of an archive, as the central directory describes it.
struct ArchiveEntry
{
    /// Who made the entry: the meaning of its attributes and of "\" in its name depend on that.
    enum System : quint8 { Dos = 0, Unix = 3, Darwin = 19 };
    /// The methods that are unpacked here, and the one that stands for encryption by AES.
    enum Method : quint16 { Stored = 0, Deflated = 8, Aes = 99 };
    enum DosAttribute : quint32 { ReadOnly = 0x01, VolumeLabel = 0x08, Folder = 0x10 };

    QByteArray name;       ///< as FileNames has bytes: UTF-8 unless the entry was made with other names
    QByteArray storedName; ///< the bytes in the archive
    quint64 size = 0;
    quint64 packedSize = 0;
    qint64 offset = 0;               ///< of the local header, from the start of the file
    std::optional<qint64> exactTime; ///< seconds since 1970; times of DOS are even
    quint32 crc = 0;
    quint32 attributes = 0; ///< the external ones: the high half is the mode where the system is Unix
    quint16 flags = 0;
    quint16 method = Stored; ///< that of the data; for AES too
    quint16 dosTime = 0;
    quint16 dosDate = 0;
    quint8 system = Dos;
    int aesStrength = 0; ///< 1 to 3 for AES with 128, 192 and 256 bits

    bool isFolder() const;
    bool isAes() const { return aesStrength != 0; }
    bool isEncrypted() const { return flags & 1; }
    /// By AES or the older way.
    bool hasKnownEncryption() const;
    bool isUnixMade() const { return system == Unix || system == Darwin; }
    bool isVolumeLabel() const;
    /// The method that the local header has too.
    quint16 storedMethod() const;
    /// AES of the second kind has no checksum of the data but a code of its own.
    bool hasCrc() const { return !isAes() || crc != 0; }

    /// "Stored", "Defl:N" and so on, as listings show it.
    QByteArray methodName() const;
    /// The percentage saved, 0 to 100; 0 where the data did not shrink.
    int savedPercentage() const;

    /// Seconds since 1970. For times of DOS the system looks up the time zone, which takes longer than
    /// reading the entry.
    qint64 modified() const;
    /// The permissions that an extracted file gets; 0 where the entry has none.
    int permissions() const;
};
