#pragma once

#include "ArchiveSource.h"
#include "PendingFile.h"

#include <functional>
#include <memory>
#include <optional>

class OldArchive;

/// An archive that is being updated or made. libzip reads the old file and writes a new one beside it, which
/// takes the old one's place, owner, permissions and attributes only when it is whole and on the disk.
/// Calls that a slow disk makes last run on threads of their own.
class ArchiveRewrite : public ArchiveSource
{
public:
    /// \a path is no link. \a old has to exist for as long as this object. \a betweenPieces is called while
    /// data is copied and written; what it throws ends the job.
    ArchiveRewrite(const QByteArray &path, const OldArchive &old, qint64 prefix,
                   std::function<void()> betweenPieces);

    /// When no entry is left, the first \a size bytes of the file and \a comment stay. Else the file is
    /// removed then.
    void keepWhenEmpty(qint64 size, const QByteArray &comment);

protected:
    /// Throws ChangedMeanwhile, and FileFailure.
    zip_int64_t handle(zip_source_cmd_t command, void *data, zip_uint64_t size) override;
    zip_int64_t supported() const override;

private:
    struct Empty
    {
        qint64 size;
        QByteArray comment;
    };

    void begin();
    void makeNew();
    void copyOld(qint64 size);
    void write(QByteArrayView bytes);
    void writeGathered();
    zip_int64_t seekNew(void *arguments, zip_uint64_t size);
    void commit();
    void setAttributes() const;
    void save() const;
    void publish();
    void requireUnchanged() const;
    void callDisk(std::function<void(const FileDescriptor &)> step) const;
    void remove();

    const OldArchive &m_old;
    FileDescriptor m_folder;
    QByteArray m_name;
    std::function<void()> m_betweenPieces;
    std::optional<Empty> m_leftWhenEmpty;
    std::unique_ptr<PendingFile> m_new;
    qint64 m_position = 0; ///< in the new file, prefix included
    qint64 m_size = 0;     ///< of the new file
    QByteArray m_unwritten;
    qint64 m_unwrittenAt = 0; ///< where m_unwritten comes in the new file
};
