#pragma once

#include "ArchiveSource.h"
#include "PartFile.h"

#include <functional>
#include <memory>

/// An archive that is being updated or made. libzip reads the old file and writes a new one beside it, which
/// takes the old one's place, owner, permissions and attributes only when it is whole and on the disk.
class ArchiveRewrite : public ArchiveSource
{
public:
    /// \a path is no link. \a old is the archive's file, not open where it is to be made, and has to exist
    /// for as long as this object. \a betweenPieces is called while data is copied and written; what it
    /// throws ends the job.
    ArchiveRewrite(const QByteArray &path, const FileDescriptor &old, qint64 prefix,
                   std::function<void()> betweenPieces);

protected:
    zip_int64_t handle(zip_source_cmd_t command, void *data, zip_uint64_t size) override;
    zip_int64_t supported() const override;

private:
    void begin();
    void copyOld(qint64 size);
    void write(QByteArrayView bytes);
    zip_int64_t seekNew(void *arguments, zip_uint64_t size);
    void commit();
    void takeOldAttributes() const;
    void sync(const FileDescriptor &file) const;
    void remove() const;

    FileDescriptor m_folder;
    QByteArray m_name;
    std::function<void()> m_betweenPieces;
    std::unique_ptr<PartFile> m_new;
    qint64 m_position = 0; ///< in the new file, prefix included
    qint64 m_size = 0;     ///< of the new file
    qint64 m_begun = 0;    ///< what of it is on the way to the disk
};
