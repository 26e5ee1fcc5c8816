#include "ZipJob.h"

#include "BadArchive.h"
#include "ChangedMeanwhile.h"
#include "DirectoryCheck.h"
#include "DirectoryReader.h"
#include "DiskCall.h"
#include "FileCollector.h"
#include "FileFailure.h"
#include "FilePattern.h"
#include "JobEnd.h"
#include "LabelEntry.h"
#include "ReadFailure.h"
#include "ServiceName.h"
#include "TargetName.h"
#include "VolumeLabel.h"
#include "ZipResult.h"

#include <QScopeGuard>
#include <QtEndian>
#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <limits>
#include <new>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace {

constexpr int defaultLevel = 6;
constexpr std::size_t entriesAtOnce = 1024; // between two calls of the service function
constexpr quint16 unixTimes = 0x5455;
constexpr zip_flags_t bothHeaders = ZIP_FL_LOCAL | ZIP_FL_CENTRAL;

/// What \a path means behind all links, also where the last one leads to a file that is to be made.
QByteArray targetOf(const QByteArray &path)
{
    const std::unique_ptr<char, void (*)(void *)> resolved(::realpath(path.constData(), nullptr), std::free);
    if (resolved)
        return QByteArray(resolved.get());
    if (errno != ENOENT)
        return path; // which opening it will find out too, as for links in a circle
    std::array<char, PATH_MAX> link;
    const ssize_t length = ::readlink(path.constData(), link.data(), link.size());
    if (length < 0)
        return path;
    const QByteArray next(link.data(), length);
    return targetOf(next.startsWith('/') ? next : path.left(path.lastIndexOf('/') + 1) + next);
}

LineEnds::Conversion conversionOf(const ZPOPT &options)
{
    return options.fCRLF_LF   ? LineEnds::Conversion::ToLf
           : options.fLF_CRLF ? LineEnds::Conversion::ToCrLf
                              : LineEnds::Conversion::None;
}

[[noreturn]] void failByLibzip(zip_t *archive)
{
    switch (zip_error_code_zip(zip_get_error(archive))) {
    case ZIP_ER_MEMORY:
        throw JobEnd{ZipResult::OutOfMemory};
    case ZIP_ER_NOZIP:
    case ZIP_ER_INCONS:
    case ZIP_ER_READ:
    case ZIP_ER_SEEK:
    case ZIP_ER_EOF:
        throw JobEnd{ZipResult::NoArchive};
    default:
        throw JobEnd{ZipResult::Internal};
    }
}

/// The name under which an entry is extracted; empty where it is not, or where libzip takes a folder for a
/// file, which cannot be given the name of a folder.
QByteArray plainName(const ArchiveEntry &entry)
{
    if (entry.isFolder() != entry.storedName.endsWith('/'))
        return {};
    try {
        const QByteArray path = TargetName::of(entry, TargetName::UseFolders).path();
        return entry.isFolder() ? path + '/' : path;
    } catch (const BadArchive &) {
        return {};
    }
}

int resultOf(const FileFailure &failure)
{
    constexpr int ofCreating[] = {EACCES, EPERM, EROFS, ENOENT, ENOTDIR, EISDIR, ENOTSUP, ELOOP};
    const bool isOfCreating = std::count(std::begin(ofCreating), std::end(ofCreating), failure.error) > 0;
    return isOfCreating ? ZipResult::CannotCreate : ZipResult::WriteFailed;
}

int percentSaved(const EntrySource &entry)
{
    if (entry.packedSize() >= entry.size())
        return 0;
    return int(100.0 * double(entry.size() - entry.packedSize()) / double(entry.size()) + 0.5);
}

} // namespace

ZipJob::ZipJob(const QByteArray &archive, const QByteArrayList &names, const ZPOPT &options,
               const ZIPUSERFUNCTIONS &functions)
    : m_path(targetOf(archive))
    , m_names(names)
    , m_options(options)
    , m_functions(functions)
    , m_current(ServiceName::of(archive))
    , m_archive(nullptr, zip_discard)
{
    m_events.begin = [this](const EntrySource &entry) {
        m_current = ServiceName::of(entry.file().name);
        callService();
    };
    m_events.betweenPieces = [this] { callService(); };
    m_events.end = [this](const EntrySource &entry) { printDone(entry); };
}

ZipJob::~ZipJob() = default;

int ZipJob::run()
{
    try {
        const int result = runSteps();
        return result == ZipResult::Success && m_hasMissed ? ZipResult::CannotOpen : result;
    } catch (const JobEnd &end) {
        return end.result;
    } catch (const BadArchive &failure) {
        warn(m_path, failure.reason);
        return ZipResult::NoArchive;
    } catch (const ReadFailure &failure) {
        warn(failure.path, std::strerror(failure.error));
        return ZipResult::ReadFailed;
    } catch (const ChangedMeanwhile &) {
        warn(m_path, "another program has changed it meanwhile");
        return ZipResult::WriteFailed;
    } catch (const FileFailure &failure) {
        warn(m_path, std::strerror(failure.error));
        return resultOf(failure);
    } catch (const std::bad_alloc &) {
        return ZipResult::OutOfMemory;
    } catch (const std::system_error &) { // no thread can be started
        return ZipResult::OutOfMemory;
    }
}

int ZipJob::runSteps()
{
    openOld();
    return m_options.fDeleteEntries ? deleteEntries() : addFiles();
}

void ZipJob::openOld()
{
    m_old = OldArchive(m_path);
    if (!m_old.hasContent())
        return;
    m_directory = DirectoryReader(m_old.file()).read([this] { callService(); });
    m_indices.reserve(qsizetype(m_directory.entries.size()));
    for (quint64 i = 0; i < m_directory.entries.size(); ++i) {
        callServiceAt(i);
        addIndex(i);
    }
}

/// The file "a" also replaces the entry "./a", unless there is one that is called "a".
void ZipJob::addIndex(quint64 index)
{
    const ArchiveEntry &entry = m_directory.entries[index];
    if (const QByteArray plain = plainName(entry); !m_indices.contains(plain))
        m_indices.insert(plain, index);
    m_indices.insert(entry.name, index);
}

void ZipJob::openContainer()
{
    m_rewrite.emplace(m_path, m_old, m_directory.prefix, [this] { callService(); });
    m_archive.reset(m_rewrite->open(ZIP_CREATE));
    if (!m_archive) {
        rethrowFailure();
        throw BadArchive{"its directory is damaged"};
    }
    DirectoryCheck::requireSame(m_archive.get(), m_directory, [this] { callService(); });
}

int ZipJob::deleteEntries()
{
    if (!m_old.file().isOpen())
        return ZipResult::MissingArchive;
    openContainer();
    if (const qint64 size = sizeBeforeEntries(); size > 0)
        m_rewrite->keepWhenEmpty(size, m_directory.comment);
    bool isAny = false;
    for (quint64 i = 0; i < m_directory.entries.size(); ++i) {
        callServiceAt(i);
        const QByteArray &name = m_directory.entries[i].name;
        const auto matches = [&](const QByteArray &wanted) {
            return FilePattern::matchesEntry(wanted, name);
        };
        if (std::none_of(m_names.cbegin(), m_names.cend(), matches))
            continue;
        isAny = true;
        check(zip_delete(m_archive.get(), i));
        print("deleting: " + EntryName::shown(name));
    }
    if (!isAny)
        return ZipResult::NothingToDo;
    close();
    return ZipResult::Success;
}

/// Where the first entry begins: behind the program of an archive that unpacks itself.
qint64 ZipJob::sizeBeforeEntries() const
{
    qint64 size = m_directory.start;
    for (const ArchiveEntry &entry : m_directory.entries)
        size = qMin(size, entry.offset);
    return size;
}

int ZipJob::addFiles()
{
    m_files = std::make_shared<const std::vector<SourceFile>>(collect());
    if (m_options.fVolume)
        m_label = VolumeLabel::of(".");
    if (m_files->empty() && !m_options.fComment && m_label.isEmpty())
        return m_hasMissed ? ZipResult::CannotOpen : ZipResult::NothingToDo;
    if (m_options.fEncrypt)
        askPassword();
    if (m_options.fComment)
        askComment();
    const bool hasNewComment = !m_comment.isEmpty() && m_old.hasContent();
    if (m_files->empty() && !hasNewComment && m_label.isEmpty())
        return ZipResult::NothingToDo;
    addAll();
    return ZipResult::Success;
}

/// On a thread of its own, which a cancelled job leaves alone: a server that does not answer may hold it up.
std::vector<SourceFile> ZipJob::search()
{
    const auto collector = std::make_shared<FileCollector>(m_options);
    struct stat state = {};
    if (::stat(m_path.constData(), &state) == 0) {
        SourceFile archive;
        archive.device = state.st_dev;
        archive.inode = state.st_ino;
        collector->leaveOut(archive);
    }
    const auto found = std::make_shared<FileCollector::Found>();
    const auto stopping = qScopeGuard([&] { collector->stop(); });
    DiskCall::run([collector, found, names = m_names] { *found = collector->collect(names); },
                  [this] { callService(); });
    for (const FileCollector::Warning &warning : found->warnings)
        warn(warning.name, warning.reason);
    if (found->hasTwoOfOneName)
        throw JobEnd{ZipResult::BadParameters};
    m_hasMissed = found->hasMissed;
    return std::move(found->files);
}

/// In the order of the entries, which is the one in which libzip asks for the data: first those that replace
/// others.
std::vector<SourceFile> ZipJob::collect()
{
    std::vector<SourceFile> files = search();
    for (std::size_t i = 0; i < files.size(); ++i) {
        callServiceAt(i);
        findReplaced(files[i]);
    }
    std::erase_if(files, [this](const SourceFile &file) { return !isWanted(file); });
    std::stable_sort(files.begin(), files.end(), [](const SourceFile &a, const SourceFile &b) {
        constexpr quint64 last = std::numeric_limits<quint64>::max();
        return a.replaced.value_or(last) < b.replaced.value_or(last);
    });
    return files;
}

void ZipJob::findReplaced(SourceFile &file) const
{
    if (const auto found = m_indices.constFind(file.name); found != m_indices.cend())
        file.replaced = *found;
}

bool ZipJob::isWanted(const SourceFile &file) const
{
    if (!file.replaced)
        return !m_options.fFreshen;
    if (!m_options.fFreshen && !m_options.fUpdate)
        return true;
    const ArchiveEntry &entry = m_directory.entries[*file.replaced];
    return file.modified > entry.modified() + (entry.exactTime ? 0 : 1); // times of DOS are even
}

void ZipJob::askPassword()
{
    const QByteArray first = requestPassword();
    if (requestPassword() != first) {
        print("error:  the passwords differ");
        throw JobEnd{ZipResult::BadParameters};
    }
    m_password = first;
}

QByteArray ZipJob::requestPassword()
{
    std::array<char, 256> buffer = {};
    if (!m_functions.password || m_functions.password(buffer) != 0)
        throw JobEnd{ZipResult::Cancelled};
    const QByteArray password(buffer.data(), std::find(buffer.begin(), buffer.end(), '\0') - buffer.begin());
    if (password.isEmpty())
        throw JobEnd{ZipResult::Cancelled};
    return password;
}

void ZipJob::askComment()
{
    CommentBuffer buffer = {};
    if (m_functions.comment)
        m_functions.comment(buffer);
    buffer.back() = '\0';
    m_comment = QByteArray(buffer.data());
}

void ZipJob::addAll()
{
    const int level = m_options.flevel > 0 ? qMin(m_options.flevel, 9) : defaultLevel;
    m_queue.emplace(m_files, conversionOf(m_options), level);
    openContainer();
    if (!m_comment.isEmpty())
        setComment();
    if (!m_label.isEmpty())
        addVolumeLabel();
    for (const SourceFile &file : *m_files) {
        callService();
        if (file.isFolder)
            addFolder(file);
        else
            addFile(file);
    }
    close();
}

void ZipJob::setComment()
{
    check(zip_set_archive_comment(m_archive.get(), m_comment.constData(), zip_uint16_t(m_comment.size())));
    m_rewrite->keepWhenEmpty(sizeBeforeEntries(), m_comment);
}

void ZipJob::addFolder(const SourceFile &file)
{
    zip_int64_t index = file.replaced ? zip_int64_t(*file.replaced) : -1;
    if (index < 0) {
        index = zip_dir_add(m_archive.get(), file.name.constData(), ZIP_FL_ENC_GUESS);
        check(index);
        print("  adding: " + EntryName::shown(file.name) + " (stored 0%)");
    }
    describe(file, zip_uint64_t(index));
    check(zip_file_set_mtime(m_archive.get(), zip_uint64_t(index), file.modified, 0));
}

void ZipJob::addFile(const SourceFile &file)
{
    zip_t *archive = m_archive.get();
    auto &entry = m_sources.emplace_back(std::make_unique<EntrySource>(file, *m_queue, m_events));
    zip_source_t *source = entry->create();
    zip_int64_t index = -1;
    if (!file.replaced)
        index = zip_file_add(archive, file.name.constData(), source, ZIP_FL_ENC_GUESS);
    else if (zip_file_replace(archive, *file.replaced, source, 0) == 0)
        index = zip_int64_t(*file.replaced);
    if (index < 0)
        zip_source_free(source);
    check(index);
    entry->setPlace(archive, zip_uint64_t(index));
    check(zip_set_file_compression(archive, zip_uint64_t(index), ZIP_CM_DEFLATE, 0));
    const zip_uint16_t encryption = m_password.isEmpty() ? ZIP_EM_NONE : ZIP_EM_TRAD_PKWARE;
    check(zip_file_set_encryption(archive, zip_uint64_t(index), encryption,
                                  m_password.isEmpty() ? nullptr : m_password.constData()));
    describe(file, zip_uint64_t(index));
}

/// The entry's name, permissions and exact time. What an entry that is replaced had in other fields is out of
/// date.
void ZipJob::describe(const SourceFile &file, zip_uint64_t index)
{
    zip_t *archive = m_archive.get();
    if (file.replaced && m_directory.entries[*file.replaced].storedName != file.name)
        check(zip_file_rename(archive, index, file.name.constData(), ZIP_FL_ENC_GUESS));
    const quint32 attributes = quint32(file.mode) << 16 | (file.isFolder ? quint32(ArchiveEntry::Folder) : 0);
    check(zip_file_set_external_attributes(archive, index, 0, ZIP_OPSYS_UNIX, attributes));
    zip_file_extra_field_delete(archive, index, ZIP_EXTRA_FIELD_ALL, bothHeaders);
    const auto seconds = qint32(file.modified);
    if (seconds != file.modified)
        return; // the field ends in 2038
    std::array<uchar, 5> times = {1};
    qToLittleEndian(seconds, times.data() + 1);
    check(zip_file_extra_field_set(archive, index, unixTimes, ZIP_EXTRA_FIELD_NEW, times.data(), times.size(),
                                   bothHeaders));
}

/// The label is left out where a file has its name, in the old archive or the new one.
void ZipJob::addVolumeLabel()
{
    const auto isNamedSo = [this](const SourceFile &file) { return file.name == m_label; };
    const bool isNewName = std::any_of(m_files->cbegin(), m_files->cend(), isNamedSo);
    if (isNewName || !LabelEntry::set(m_archive.get(), m_directory.entries, m_label))
        warn(m_label, "a file has the name of the volume");
}

/// Here everything is done: libzip asks for the data of all new entries and writes the archive.
void ZipJob::close()
{
    check(zip_close(m_archive.get()));
    m_archive.release();
    freeOld();
}

/// The file that has been replaced is gone when it is closed, and to free a large one takes its time.
void ZipJob::freeOld()
{
    try {
        DiskCall::run([old = std::make_shared<OldArchive>(std::move(m_old))] { *old = OldArchive(); },
                      [this] { callService(); });
    } catch (...) {
    } // the archive is there
}

/// \a result is that of a libzip call of the job's own.
void ZipJob::check(zip_int64_t result) const
{
    if (result >= 0)
        return;
    rethrowFailure();
    failByLibzip(m_archive.get());
}

void ZipJob::rethrowFailure() const
{
    for (const auto &source : m_sources) {
        if (source->failure())
            std::rethrow_exception(source->failure());
    }
    if (m_rewrite->failure())
        std::rethrow_exception(m_rewrite->failure());
}

void ZipJob::printDone(const EntrySource &entry) const
{
    QByteArray line = entry.file().replaced ? "updating: " : "  adding: ";
    line += EntryName::shown(entry.file().name);
    if (m_options.fVerbose)
        line += " (in=" + QByteArray::number(entry.size()) +
                ") (out=" + QByteArray::number(entry.packedSize()) + ')';
    line += entry.isDeflated() ? " (deflated " : " (stored ";
    print(line + QByteArray::number(percentSaved(entry)) + "%)");
}

void ZipJob::print(const QByteArray &text) const
{
    if (m_functions.print && !m_options.fQuiet)
        m_functions.print(text);
}

void ZipJob::warn(const QByteArray &name, const QByteArray &reason) const
{
    if (m_functions.print)
        m_functions.print("warning:  " + EntryName::shown(name) + ": " + reason);
}

/// In long loops.
void ZipJob::callServiceAt(std::size_t index) const
{
    if (index % entriesAtOnce == 0)
        callService();
}

void ZipJob::callService() const
{
    if (m_functions.service && m_functions.service(m_current) != 0)
        throw JobEnd{ZipResult::Cancelled};
}
