#pragma once

#include "ArchiveEntry.h"
#include "PartFile.h"
#include "TargetFolder.h"

/// The file that an entry becomes. It appears under its name, with its time and permissions, only when it is
/// whole. Throws FileFailure.
class ExtractedFile
{
public:
    ExtractedFile(TargetFolder::Folder folder, const ArchiveEntry &entry);

    void write(QByteArrayView bytes) { m_part.file().write(bytes); }
    /// \a existing says what happens where the name is taken, \a ordinaryMode are the permissions where the
    /// entry has none.
    void publish(const QByteArray &name, PartFile::Existing existing, mode_t ordinaryMode);

private:
    TargetFolder::Folder m_folder;
    const ArchiveEntry &m_entry;
    PartFile m_part;
};
