#pragma once

#include "ArchiveDirectory.h"
#include "ArchiveSource.h"
#include "PackedData.h"

#include <functional>
#include <memory>

/// The entries that libzip reads: those with the older encryption, and those packed by a method that is not
/// unpacked here.
class LibzipEntries
{
public:
    /// \a file has to exist for as long as this object and the data of its entries. \a betweenEntries is
    /// called now and then. Throws BadArchive, also where libzip finds other entries than \a directory has.
    LibzipEntries(const FileDescriptor &file, const ArchiveDirectory &directory,
                  const std::function<void()> &betweenEntries);

    /// libzip unpacks \a method.
    static bool canUnpack(quint16 method);

    /// The data of the entry at \a index of the directory, decrypted, and also unpacked with \a unpacks.
    /// Throws WrongPassword and BadArchive; a wrong password may be noticed only by the data, though.
    std::unique_ptr<PackedData> open(std::size_t index, const QByteArray &password, bool unpacks);

private:
    ArchiveSource m_source;
    std::unique_ptr<zip_t, void (*)(zip_t *)> m_archive;
};
