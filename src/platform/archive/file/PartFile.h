#pragma once

#include "FileDescriptor.h"

/// A file that is being written. It has a hidden name of its own in its folder until all of its data is
/// there; then it gets its real name. Until then the destructor removes it. What a killed process left is
/// removed by the next sweep(): the process that writes the file holds a lock on it.
///
/// The functions throw FileFailure.
class PartFile
{
public:
    enum class Existing { Keep, Replace };

    /// Makes the file, for the user alone, in the open folder \a folder, which has to exist for as long as
    /// this object.
    explicit PartFile(const FileDescriptor &folder);
    ~PartFile();
    PartFile(const PartFile &) = delete;
    PartFile &operator=(const PartFile &) = delete;

    const FileDescriptor &file() const { return m_file; }

    /// Gives the file its name. With Existing::Keep it fails with EEXIST where the name is taken.
    void publish(const QByteArray &name, Existing existing);

    /// Removes from \a folder what killed processes left there; never fails.
    static void sweep(const FileDescriptor &folder);

private:
    const FileDescriptor &m_folder;
    QByteArray m_hidden; ///< the name until publish()
    FileDescriptor m_file;
};
