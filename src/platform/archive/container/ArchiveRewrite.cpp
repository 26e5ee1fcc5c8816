#include "ArchiveRewrite.h"

#include "ChangedMeanwhile.h"
#include "DiskCall.h"
#include "FileFailure.h"
#include "FileMode.h"
#include "KeptAttributes.h"
#include "OldArchive.h"

#include <QtEndian>
#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr qint64 writtenAtOnce = 1 << 20;
constexpr qint64 copiedAtOnce = 16 << 20;
constexpr mode_t privateMode = 0600; // until the archive is whole

void checkCall(bool isDone)
{
    if (!isDone)
        throw FileFailure();
}

/// Has the disk begin with what would else be left for the end.
void startWriting(const FileDescriptor &file, qint64 offset, qint64 size)
{
    ::sync_file_range(file.get(), offset, size, SYNC_FILE_RANGE_WRITE);
}

void writeAt(const FileDescriptor &file, QByteArrayView bytes, qint64 offset)
{
    const qint64 begin = offset;
    while (!bytes.isEmpty()) {
        const ssize_t taken = ::pwrite(file.get(), bytes.data(), size_t(bytes.size()), offset);
        if (taken < 0 && errno == EINTR)
            continue;
        checkCall(taken >= 0);
        offset += taken;
        bytes = bytes.sliced(taken);
    }
    startWriting(file, begin, offset - begin);
}

/// The kernel copies.
void copyRange(const FileDescriptor &from, const FileDescriptor &to, qint64 begin, qint64 end)
{
    for (qint64 at = begin; at < end;) {
        loff_t source = at;
        loff_t target = at;
        const ssize_t copied = ::copy_file_range(from.get(), &source, to.get(), &target, size_t(end - at), 0);
        if (copied < 0 && errno == EINTR)
            continue;
        checkCall(copied >= 0);
        if (copied == 0)
            throw FileFailure(EIO); // the old file has become shorter
        at += copied;
    }
    startWriting(to, begin, end - begin);
}

/// For calls that a cancelled job leaves alone: they go on when \a file is closed already.
std::shared_ptr<const FileDescriptor> sharedCopy(int file)
{
    return std::make_shared<const FileDescriptor>(FileDescriptor::duplicateOf(file));
}

/// The whole archive where that has no entries.
QByteArray endRecord(const QByteArray &comment)
{
    constexpr qsizetype numbers = 16; // all of them 0
    const auto size = qToLittleEndian(quint16(comment.size()));
    return "PK\x05\x06" + QByteArray(numbers, '\0') +
           QByteArray(reinterpret_cast<const char *>(&size), sizeof size) + comment;
}

} // namespace

ArchiveRewrite::ArchiveRewrite(const QByteArray &path, const OldArchive &old, qint64 prefix,
                               std::function<void()> betweenPieces)
    : ArchiveSource(old.file(), prefix)
    , m_old(old)
    , m_folder(FileDescriptor::openFolderOf(path))
    , m_name(path.sliced(path.lastIndexOf('/') + 1))
    , m_betweenPieces(std::move(betweenPieces))
{
    PendingFile::sweep(m_folder.get());
}

void ArchiveRewrite::keepWhenEmpty(qint64 size, const QByteArray &comment)
{
    m_leftWhenEmpty = Empty{size, comment};
}

zip_int64_t ArchiveRewrite::supported() const
{
    return ZIP_SOURCE_SUPPORTS_WRITABLE | ZIP_SOURCE_MAKE_COMMAND_BITMASK(ZIP_SOURCE_BEGIN_WRITE_CLONING);
}

zip_int64_t ArchiveRewrite::handle(zip_source_cmd_t command, void *data, zip_uint64_t size)
{
    switch (command) {
    case ZIP_SOURCE_READ:
        m_betweenPieces();
        return ArchiveSource::handle(command, data, size);
    case ZIP_SOURCE_BEGIN_WRITE:
        begin();
        return 0;
    case ZIP_SOURCE_BEGIN_WRITE_CLONING:
        begin();
        copyOld(qint64(size));
        return 0;
    case ZIP_SOURCE_WRITE:
        write(QByteArrayView(static_cast<const char *>(data), qsizetype(size)));
        return zip_int64_t(size);
    case ZIP_SOURCE_SEEK_WRITE:
        return seekNew(data, size);
    case ZIP_SOURCE_TELL_WRITE:
        return m_position - prefix();
    case ZIP_SOURCE_COMMIT_WRITE:
        commit();
        return 0;
    case ZIP_SOURCE_ROLLBACK_WRITE:
        m_new.reset();
        return 0;
    case ZIP_SOURCE_REMOVE:
        remove();
        return 0;
    default:
        return ArchiveSource::handle(command, data, size);
    }
}

void ArchiveRewrite::begin()
{
    // libzip goes on by copying everything where the first way has failed; a cancelled job must not.
    if (failure())
        std::rethrow_exception(failure());
    makeNew();
    m_position = m_size = 0;
    m_unwritten.clear();
    m_unwritten.reserve(writtenAtOnce);
    if (prefix() > 0)
        copyOld(0);
}

void ArchiveRewrite::makeNew()
{
    const auto made = std::make_shared<std::unique_ptr<PendingFile>>();
    const auto make = [made, folder = sharedCopy(m_folder.get())] {
        FileFailure::translated([&] { *made = std::make_unique<PendingFile>(folder->get(), privateMode); });
    };
    DiskCall::run(make, m_betweenPieces);
    m_new = std::move(*made);
}

/// What the old file has before and in the first \a size bytes of its archive stays as it is.
void ArchiveRewrite::copyOld(qint64 size)
{
    const qint64 end = prefix() + size;
    for (qint64 begin = m_size; begin < end; begin += copiedAtOnce) {
        m_betweenPieces();
        callDisk([from = sharedCopy(file().get()), begin, pieceEnd = qMin(begin + copiedAtOnce, end)](
                     const FileDescriptor &to) { copyRange(*from, to, begin, pieceEnd); });
    }
    m_position = m_size = qMax(m_size, end);
}

/// Most writes are small, and libzip goes back to the beginning of each entry; so they are gathered.
void ArchiveRewrite::write(QByteArrayView bytes)
{
    if (const qint64 at = m_position - m_unwrittenAt;
        at < 0 || at > m_unwritten.size() || at + bytes.size() > writtenAtOnce)
        writeGathered();
    if (m_unwritten.isEmpty())
        m_unwrittenAt = m_position;
    const qsizetype at = m_position - m_unwrittenAt;
    m_unwritten.resize(qMax(m_unwritten.size(), at + bytes.size()));
    std::copy(bytes.begin(), bytes.end(), m_unwritten.begin() + at);
    m_position += bytes.size();
    m_size = qMax(m_size, m_position);
}

void ArchiveRewrite::writeGathered()
{
    if (m_unwritten.isEmpty())
        return;
    m_betweenPieces();
    callDisk([bytes = std::exchange(m_unwritten, {}), at = m_unwrittenAt](const FileDescriptor &to) {
        writeAt(to, bytes, at);
    });
    m_unwritten.reserve(writtenAtOnce);
}

zip_int64_t ArchiveRewrite::seekNew(void *arguments, zip_uint64_t size)
{
    const zip_int64_t position = zip_source_seek_compute_offset(
        zip_uint64_t(m_position - prefix()), zip_uint64_t(m_size - prefix()), arguments, size, error());
    if (position < 0)
        return -1;
    m_position = prefix() + position;
    return 0;
}

void ArchiveRewrite::commit()
{
    writeGathered();
    setAttributes();
    save();
    requireUnchanged();
    publish();
    try {
        // The rename itself has to last; not every file system offers that.
        DiskCall::run([folder = sharedCopy(m_folder.get())] { ::fsync(folder->get()); }, m_betweenPieces);
    } catch (...) {
    } // the archive is there
}

void ArchiveRewrite::setAttributes() const
{
    if (file().isOpen())
        callDisk(
            [old = sharedCopy(file().get())](const FileDescriptor &to) { KeptAttributes::copy(*old, to); });
    else
        callDisk([](const FileDescriptor &to) { checkCall(::fchmod(to.get(), FileMode::ordinary()) == 0); });
}

void ArchiveRewrite::save() const
{
    const auto save = [sync = m_new->syncing()] {
        if (const int error = sync())
            throw FileFailure(error);
    };
    DiskCall::run(save, m_betweenPieces);
}

/// Cannot be cancelled: nobody could say then which archive is there.
void ArchiveRewrite::publish()
{
    const auto existing = file().isOpen() ? PendingFile::Existing::Replace : PendingFile::Existing::Keep;
    const auto whileWaiting = [this] {
        try {
            m_betweenPieces();
        } catch (...) {
        }
    };
    DiskCall::run([this, existing] { FileFailure::translated([&] { m_new->publish(m_name, existing); }); },
                  whileWaiting);
}

void ArchiveRewrite::requireUnchanged() const
{
    if (!m_old.isUnchangedAt(m_folder, m_name))
        throw ChangedMeanwhile();
}

/// Calls \a step with the new file, on a thread of its own.
void ArchiveRewrite::callDisk(std::function<void(const FileDescriptor &)> step) const
{
    DiskCall::run([file = sharedCopy(m_new->file()), step = std::move(step)] { step(*file); },
                  m_betweenPieces);
}

/// The archive has no entry left.
void ArchiveRewrite::remove()
{
    if (m_leftWhenEmpty) {
        begin();
        copyOld(m_leftWhenEmpty->size - prefix());
        write(endRecord(m_leftWhenEmpty->comment));
        commit();
        return;
    }
    requireUnchanged();
    checkCall(::unlinkat(m_folder.get(), m_name.constData(), 0) == 0);
}
