#pragma once

#include "ArchiveSource.h"
#include "PackedData.h"

#include <memory>

/// The entries that libzip reads: those with the older encryption, and those packed by a method that is not
/// unpacked here.
class LibzipEntries
{
public:
    /// \a file has to exist for as long as this object and the data of its entries. Throws BadArchive.
    LibzipEntries(const FileDescriptor &file, qint64 prefix);

    /// libzip unpacks \a method.
    static bool canUnpack(quint16 method);

    /// The data of the entry at \a index of the directory, decrypted, and also unpacked with \a unpacks.
    /// Throws WrongPassword and BadArchive; a wrong password may be noticed only by the data, though.
    std::unique_ptr<PackedData> open(std::size_t index, const QByteArray &password, bool unpacks);

private:
    ArchiveSource m_source;
    std::unique_ptr<zip_t, void (*)(zip_t *)> m_archive;
};
