#include "UnzipJob.h"

#include "BadArchive.h"
#include "DirectoryReader.h"
#include "DosTime.h"
#include "EntryName.h"
#include "FileFailure.h"
#include "FileMode.h"
#include "JobEnd.h"
#include "LocalHeader.h"
#include "ServiceName.h"
#include "UnzipResult.h"
#include "WrongPassword.h"

#include <cstring>
#include <fcntl.h>
#include <limits>
#include <new>
#include <sys/stat.h>
#include <system_error>
#include <utility>

namespace {

constexpr std::size_t passedAtOnce = 1024; // entries, between two calls of the service function
constexpr qsizetype printedAtOnce = 1023;  // what a print function takes

// From which fQuiet on a message is not printed.
constexpr int ifAll = 1;
constexpr int ifFew = 2;
constexpr int ifAsked = std::numeric_limits<int>::max();

qint32 limited(quint64 size)
{
    return qint32(qMin<quint64>(size, std::numeric_limits<qint32>::max()));
}

ListedEntry listed(const ArchiveEntry &entry)
{
    ListedEntry row;
    row.ucsize = limited(entry.size);
    row.csiz = limited(entry.packedSize);
    row.cfactor = entry.savedPercentage();
    row.mo = DosTime::month(entry.dosDate);
    row.dy = DosTime::day(entry.dosDate);
    row.yr = DosTime::year(entry.dosDate);
    row.hh = DosTime::hour(entry.dosTime);
    row.mm = DosTime::minute(entry.dosTime);
    row.fname = entry.isFolder() ? EntryName::shownFolder(entry.name) : EntryName::shown(entry.name);
    row.meth = entry.methodName();
    row.crc = entry.crc;
    row.fCrypt = entry.isEncrypted() ? 'E' : ' ';
    return row;
}

int resultOf(const BadArchive &failure)
{
    switch (failure.kind) {
    case BadArchive::Cut:
        return UnzipResult::Cut;
    case BadArchive::Overlapping:
        return UnzipResult::Overlap;
    case BadArchive::Unsupported:
        return UnzipResult::Unsupported;
    default:
        return UnzipResult::DamagedEntry;
    }
}

/// Unpacked here and not by libzip.
bool isKnown(const ArchiveEntry &entry)
{
    return entry.method == ArchiveEntry::Stored || entry.method == ArchiveEntry::Deflated;
}

/// Neither encrypted nor packed by a method that only libzip knows.
bool isPlain(const ArchiveEntry &entry)
{
    return !entry.isEncrypted() && (isKnown(entry) || !LibzipEntries::canUnpack(entry.method));
}

bool hasWrongPassword(const ExtractionPool::Done &done)
{
    if (!done.failure || done.task.password.isEmpty())
        return false;
    try {
        std::rethrow_exception(done.failure);
    } catch (const WrongPassword &) {
        return true;
    } catch (...) {
        return false;
    }
}

} // namespace

UnzipJob::UnzipJob(const QByteArrayList &included, const QByteArrayList &excluded, const DCLIST &options,
                   const USERFUNCTION &functions)
    : m_options(options)
    , m_functions(functions)
    , m_includedNames(included)
    , m_excludedNames(excluded)
    , m_current(ServiceName::of(options.lpszZipFN))
    , m_password(functions.password)
    , m_ordinaryMode(FileMode::ordinary())
{}

UnzipJob::~UnzipJob() = default;

int UnzipJob::run()
{
    try {
        runSteps();
    } catch (const JobEnd &end) {
        m_result = end.result;
    } catch (const BadArchive &failure) {
        fail(m_options.lpszZipFN, failure.reason, UnzipResult::NoArchive);
    } catch (const FileFailure &failure) {
        fail(m_options.lpszZipFN, std::strerror(failure.error), UnzipResult::CannotOpen);
    } catch (const std::bad_alloc &) {
        fail(m_options.lpszZipFN, "out of memory", UnzipResult::OutOfMemory);
    } catch (const std::system_error &) { // no thread can be started
        fail(m_options.lpszZipFN, "out of memory", UnzipResult::OutOfMemory);
    }
    return m_result;
}

void UnzipJob::runSteps()
{
    m_file = FileDescriptor::openOrdinary(m_options.lpszZipFN);
    m_directory = DirectoryReader(m_file).read([this] { callService(); });
    if (m_options.nzflag)
        print(m_directory.comment, ifAsked);
    const bool isCaseSensitive = m_options.C_flag;
    m_included.emplace(m_includedNames, m_directory.entries, isCaseSensitive);
    m_excluded.emplace(m_excludedNames, m_directory.entries, isCaseSensitive);
    if (m_options.nvflag)
        list();
    else
        extractAll();
}

bool UnzipJob::includes(const ArchiveEntry &entry) const
{
    return (m_included->isEmpty() || m_included->contains(entry)) && !m_excluded->contains(entry);
}

void UnzipJob::list()
{
    std::size_t count = 0;
    for (const ArchiveEntry &entry : m_directory.entries) {
        if (count++ % passedAtOnce == 0)
            beginWith(entry);
        if (includes(entry))
            m_functions.message(listed(entry));
    }
}

void UnzipJob::extractAll()
{
    const bool isWriting = !m_options.ntflag && !m_options.ncflag;
    try {
        if (isWriting)
            m_target.emplace(m_options.lpszExtractDir);
    } catch (const FileFailure &failure) {
        fail(m_options.lpszExtractDir, std::strerror(failure.error), UnzipResult::BadParameters);
        return;
    }
    m_extents.emplace(m_directory);
    m_pool.emplace(m_file);
    try {
        extractEntries();
        restoreFolders([this] { callService(); });
    } catch (...) {
        m_pool.reset(); // no file comes into a folder that has its time and permissions
        restoreFolders([] {});
        throw;
    }
}

void UnzipJob::extractEntries()
{
    bool isAnyIncluded = false;
    for (std::size_t i = 0; i < m_directory.entries.size(); ++i) {
        const ArchiveEntry &entry = m_directory.entries[i];
        if (i % passedAtOnce == 0)
            callService();
        if (!includes(entry) || entry.isVolumeLabel())
            continue;
        isAnyIncluded = true;
        beginWith(entry);
        guarded(entry.name, [&] { extract(entry); });
    }
    finishAll();
    if (!isAnyIncluded && !m_included->isEmpty())
        m_result = qMax(m_result, UnzipResult::NothingFound);
}

void UnzipJob::extract(const ArchiveEntry &entry)
{
    std::optional<ExtractionTask> task = taskFor(entry);
    if (!task)
        return;
    task->dataOffset = checkedDataOffset(entry);
    if (isForPool(*task)) {
        addToPool(std::move(*task));
    } else {
        finishAll(); // so that messages and questions come in the order of the entries
        extractAlone(std::move(*task));
    }
}

/// Read right from the file, and most likely without a question.
bool UnzipJob::isForPool(const ExtractionTask &task) const
{
    const ArchiveEntry &entry = *task.entry;
    return !task.output &&
           (isPlain(entry) || (entry.isEncrypted() && entry.isAes() && !m_password.known().isEmpty()));
}

void UnzipJob::addToPool(ExtractionTask task)
{
    while (m_pool->isFull())
        finishOne();
    if (!m_refused.empty())
        finishAll(); // before more tasks take that password
    if (task.entry->isEncrypted())
        task.password = m_password.known();
    m_atWork.insert(task.path);
    m_pool->add(std::move(task));
}

void UnzipJob::makeFolder(const QByteArray &path)
{
    if (path.isEmpty() || !m_target)
        return;
    waitFor(path);
    const bool isNew = !m_target->exists(path);
    m_target->folder(path);
    if (isNew)
        print("   creating: " + EntryName::shown(path) + '/', ifAll);
}

TargetName UnzipJob::targetOf(const ArchiveEntry &entry) const
{
    return TargetName::of(entry, (m_options.ndflag ? TargetName::UseFolders : 0) |
                                     (m_options.SpaceToUnderScore ? TargetName::SpaceToUnderscore : 0));
}

/// Nothing where the entry has no data, or where a file that exists stays.
std::optional<ExtractionTask> UnzipJob::taskFor(const ArchiveEntry &entry)
{
    const TargetName target = targetOf(entry);
    if (target.name.isEmpty()) {
        makeFolder(target.folder);
        return {};
    }
    ExtractionTask task;
    task.entry = &entry;
    task.path = target.path();
    task.name = target.name;
    task.convertsReturns = m_options.naflag;
    task.ordinaryMode = m_ordinaryMode;
    if (m_options.ncflag && !m_options.ntflag)
        task.output = [this](QByteArrayView piece) { printContent(piece); };
    if (!m_target)
        return task;
    waitFor(task.path);
    task.folder = m_target->folder(target.folder);
    struct stat existing = {};
    if (::fstatat(task.folder->get(), task.name.constData(), &existing, AT_SYMLINK_NOFOLLOW) != 0)
        return task;
    if (!mayReplace(entry, task, existing))
        return {};
    task.existing = PendingFile::Existing::Replace;
    return task;
}

/// An entry meets the files of those before it, where one has its name, or that of a folder that it is in.
void UnzipJob::waitFor(const QByteArray &path)
{
    bool isAtWork = m_atWork.contains(path);
    for (qsizetype end = path.indexOf('/'); end >= 0; end = path.indexOf('/', end + 1))
        isAtWork = isAtWork || m_atWork.contains(path.left(end));
    if (isAtWork)
        finishAll();
}

bool UnzipJob::mayReplace(const ArchiveEntry &entry, const ExtractionTask &task, const struct stat &existing)
{
    if (!S_ISREG(existing.st_mode) && !S_ISLNK(existing.st_mode))
        throw FileFailure(EEXIST);
    if ((m_options.ExtractOnlyNewer || m_options.nUflag) && existing.st_mtime >= entry.modified())
        return false;
    if (m_options.noflag || m_replacing == Replacing::All)
        return true;
    return m_options.PromptToOverwrite && m_replacing == Replacing::Ask && asksToReplace(task.path);
}

bool UnzipJob::asksToReplace(const QByteArray &path)
{
    const int answer =
        m_functions.replace ? m_functions.replace(EntryName::shown(path)) : OverwriteAnswer::No;
    if (answer == OverwriteAnswer::All)
        m_replacing = Replacing::All;
    else if (answer == OverwriteAnswer::None)
        m_replacing = Replacing::None;
    return answer == OverwriteAnswer::All || answer == OverwriteAnswer::Yes;
}

qint64 UnzipJob::checkedDataOffset(const ArchiveEntry &entry) const
{
    const qint64 offset = LocalHeader::dataOffset(m_file, entry);
    if (m_extents->overlaps(entry, offset + qint64(entry.packedSize)))
        throw BadArchive{"it shares its data with another entry", BadArchive::Overlapping};
    return offset;
}

void UnzipJob::extractAlone(ExtractionTask task)
{
    if (task.entry->isEncrypted())
        extractEncrypted(task);
    else if (isPlain(*task.entry))
        extractNow(std::move(task));
    else
        extractByLibzip(std::move(task), {});
}

void UnzipJob::extractEncrypted(const ExtractionTask &task)
{
    // Not left to libzip, which loses memory by it.
    if (!task.entry->hasKnownEncryption())
        throw BadArchive{"its encryption is not supported", BadArchive::Unsupported};
    if (!task.entry->isAes())
        openLibzip(); // no password opens a directory that is damaged
    const QByteArray before = m_password.known();
    bool hasPassword = !m_password.get().isEmpty();
    while (hasPassword && !isRight(m_password.get(), task))
        hasPassword = m_password.replace();
    if (hasPassword)
        return;
    m_password.restore(before);
    fail(task.path, "no password, or a wrong one", UnzipResult::NoPassword);
}

/// Extracts the entry if \a password is right. With the older encryption one in 256 wrong passwords is
/// noticed by the data alone.
bool UnzipJob::isRight(const QByteArray &password, ExtractionTask task)
{
    const bool isAes = task.entry->isAes();
    try {
        if (isAes) {
            task.password = password;
            extractNow(std::move(task));
        } else {
            extractByLibzip(std::move(task), password);
        }
        return true;
    } catch (const WrongPassword &) {
        return false;
    } catch (const BadArchive &failure) {
        if (isAes || failure.kind == BadArchive::Unsupported)
            throw;
        return false;
    }
}

void UnzipJob::openLibzip()
{
    if (!m_libzip)
        m_libzip.emplace(m_file, m_directory, [this] { callService(); });
}

void UnzipJob::extractByLibzip(ExtractionTask task, const QByteArray &password)
{
    openLibzip();
    const auto index = std::size_t(task.entry - m_directory.entries.data());
    task.isUnpacked = !isKnown(*task.entry);
    task.data = m_libzip->open(index, password, task.isUnpacked);
    extractNow(std::move(task));
}

/// The pool has nothing else to do. Contents that are printed are read here, since printing is the business
/// of this thread.
void UnzipJob::extractNow(ExtractionTask task)
{
    ExtractionPool::Done done{task, nullptr};
    if (task.output) {
        m_extraction.run(task, [this] { callService(); });
    } else {
        m_pool->add(std::move(task));
        done = waitForFirst();
    }
    if (done.failure)
        std::rethrow_exception(done.failure);
    report(done);
}

void UnzipJob::report(const ExtractionPool::Done &done)
{
    guarded(done.task.path, [&] {
        if (done.failure)
            std::rethrow_exception(done.failure);
        const QByteArray shown = EntryName::shown(done.task.path);
        if (m_options.ntflag)
            print("    testing: " + shown + "   OK", ifAll);
        else if (m_target)
            print((done.task.entry->method == ArchiveEntry::Stored ? " extracting: " : "  inflating: ") +
                      shown,
                  ifAll);
    });
}

ExtractionPool::Done UnzipJob::waitForFirst()
{
    for (;;) {
        if (auto done = m_pool->wait())
            return std::move(*done);
        callService();
    }
}

void UnzipJob::finishOne()
{
    ExtractionPool::Done done = waitForFirst();
    m_atWork.remove(done.task.path);
    if (hasWrongPassword(done))
        m_refused.push_back(std::move(done.task));
    else
        report(done);
}

void UnzipJob::finishAll()
{
    while (!m_pool->isEmpty())
        finishOne();
    const QByteArray current = m_current;
    for (const ExtractionTask &task : std::exchange(m_refused, {})) {
        beginWith(*task.entry);
        guarded(task.path, [&] { extractEncrypted(task); });
    }
    m_current = current;
}

/// The folders that the job has made, by their paths, and their entries, which may be further on than it
/// came.
QMap<QByteArray, const ArchiveEntry *> UnzipJob::madeFolders() const
{
    QMap<QByteArray, const ArchiveEntry *> folders;
    for (const ArchiveEntry &entry : m_directory.entries) {
        if (!entry.isFolder() || !includes(entry))
            continue;
        try {
            if (const QByteArray path = targetOf(entry).folder; m_target->hasMade(path))
                folders.insert(path, &entry);
        } catch (const BadArchive &) {
        } // its name is not allowed
    }
    return folders;
}

/// Last, and the inner ones first: files that come into a folder change its time, and its permissions may
/// forbid more files.
void UnzipJob::restoreFolders(const std::function<void()> &betweenFolders)
{
    if (!m_target)
        return;
    const auto folders = madeFolders();
    for (auto folder = folders.cend(); folder != folders.cbegin();) {
        --folder;
        betweenFolders();
        guarded(folder.key(), [&] { m_target->restore(folder.key(), *folder.value()); });
    }
}

template<class Step>
void UnzipJob::guarded(const QByteArray &path, Step step)
{
    try {
        step();
    } catch (const BadArchive &failure) {
        fail(path, failure.reason, resultOf(failure));
    } catch (const WrongPassword &) { // libzip takes the entry for an encrypted one
        fail(path, "its encryption differs", UnzipResult::DamagedEntry);
    } catch (const FileFailure &failure) {
        failBySystem(path, failure);
    }
}

void UnzipJob::failBySystem(const QByteArray &path, const FileFailure &failure)
{
    fail(path, std::strerror(failure.error),
         failure.isFullDisk() ? UnzipResult::DiskFull : UnzipResult::Warning);
    if (failure.isFullDisk())
        throw JobEnd{UnzipResult::DiskFull};
}

void UnzipJob::fail(const QByteArray &path, const QByteArray &reason, int result)
{
    print("error:  " + EntryName::shown(path) + ": " + reason, ifFew);
    m_result = qMax(m_result, result);
}

void UnzipJob::print(QByteArrayView text, int mostQuiet) const
{
    if (m_options.fQuiet >= mostQuiet || !m_functions.print)
        return;
    for (qsizetype at = 0; at < text.size(); at += printedAtOnce)
        m_functions.print(text.sliced(at, qMin(printedAtOnce, text.size() - at)));
}

void UnzipJob::printContent(QByteArrayView content) const
{
    constexpr qsizetype textsAtOnce = 64;
    for (qsizetype at = 0; at < content.size(); at += textsAtOnce * printedAtOnce) {
        callService();
        print(content.sliced(at, qMin(textsAtOnce * printedAtOnce, content.size() - at)), ifAsked);
    }
}

void UnzipJob::beginWith(const ArchiveEntry &entry)
{
    m_current = ServiceName::of(entry.name);
    callService();
}

void UnzipJob::callService() const
{
    if (m_functions.service && m_functions.service(m_current) != 0)
        throw JobEnd{UnzipResult::Cancelled};
}
