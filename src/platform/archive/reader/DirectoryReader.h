#pragma once

#include "ArchiveDirectory.h"
#include "FileWindow.h"

#include <functional>

/// Reads the central directory of an archive. Nothing else of the archive is looked at, and no number in it
/// is trusted: what a damaged or hostile file can cost is memory in proportion to the entries that it really
/// has.
class DirectoryReader
{
public:
    explicit DirectoryReader(const FileDescriptor &file);

    /// Calls \a betweenEntries now and then; what it throws ends the reading. Throws BadArchive and
    /// FileFailure.
    ArchiveDirectory read(const std::function<void()> &betweenEntries = [] {});

private:
    /// The record at the end of an archive, with the wider numbers of its 64-bit form where there is one.
    struct End
    {
        qint64 position = 0; ///< where the central directory ends
        quint64 size = 0;
        quint64 offset = 0; ///< of the directory, without a prefix
        quint64 count = 0;
        bool is64 = false;
    };

    bool findEnd(qint64 position, QByteArrayView record, End &end, ArchiveDirectory &directory);
    void readEnd64(qint64 locator, End &end);
    bool readEnd64At(qint64 position, End &end);
    bool isEntryAt(qint64 position);
    bool locate(const End &end, ArchiveDirectory &directory);
    void readEntries(const End &end, ArchiveDirectory &directory,
                     const std::function<void()> &betweenEntries);
    ArchiveEntry parse(QByteArrayView record, qint64 prefix) const;

    FileWindow m_window;
    qint64 m_fileSize;
};
