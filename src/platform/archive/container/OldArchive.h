#pragma once

#include "FileDescriptor.h"

#include <sys/stat.h>

/// The file of an archive that a job updates, as it was when the job began.
class OldArchive
{
public:
    /// No file: the archive is to be made.
    OldArchive() = default;
    /// \a path is no link; nothing is opened where there is no file. Throws FileFailure, also where the user
    /// may not write to the file.
    explicit OldArchive(const QByteArray &path);

    const FileDescriptor &file() const { return m_file; }
    /// There is something in it.
    bool hasContent() const { return m_file.isOpen() && m_state.st_size > 0; }

    /// \a name in \a folder is still this file, or still missing, and nobody has changed it.
    bool isUnchangedAt(const FileDescriptor &folder, const QByteArray &name) const;

private:
    FileDescriptor m_file;
    struct stat m_state = {};
};
