#pragma once

#include "ArchiveDirectory.h"
#include "ArchivePassword.h"
#include "DCLIST.h"
#include "EntryExtents.h"
#include "EntryExtraction.h"
#include "ExtractionPool.h"
#include "FileFailure.h"
#include "LibzipEntries.h"
#include "NameFilter.h"
#include "TargetFolder.h"
#include "TargetName.h"
#include "USERFUNCTION.h"

#include <QMap>
#include <functional>
#include <optional>
#include <sys/stat.h>

/// One job of the unzip library: it lists, tests or extracts the entries of an archive. It decides, entry by
/// entry and on the caller's thread, what is to be done; the pool does the rest.
class UnzipJob
{
public:
    UnzipJob(const QByteArrayList &included, const QByteArrayList &excluded, const DCLIST &options,
             const USERFUNCTION &functions);
    ~UnzipJob();

    /// Returns a UnzipResult.
    int run();

private:
    void runSteps();
    void list();
    void extractAll();
    void extractEntries();
    bool includes(const ArchiveEntry &entry) const;

    void extract(std::size_t index);
    void makeFolder(const QByteArray &path);
    TargetName targetOf(const ArchiveEntry &entry) const;
    std::optional<ExtractionTask> taskFor(const ArchiveEntry &entry);
    void waitFor(const QByteArray &path);
    bool mayReplace(const ArchiveEntry &entry, const ExtractionTask &task, const struct stat &existing);
    bool asksToReplace(const QByteArray &path);
    qint64 checkedDataOffset(const ArchiveEntry &entry) const;
    void extractAlone(std::size_t index, ExtractionTask task);
    void extractEncrypted(std::size_t index, const ExtractionTask &task);
    bool isRight(const QByteArray &password, std::size_t index, const ExtractionTask &task);
    void extractAes(ExtractionTask task, const QByteArray &password);
    void openLibzip();
    void extractByLibzip(std::size_t index, ExtractionTask task, const QByteArray &password);
    void extractNow(ExtractionTask task);
    ExtractionPool::Done waitForFirst();
    void report(const ExtractionPool::Done &done);
    void finishOne();
    void finishAll();
    QMap<QByteArray, const ArchiveEntry *> madeFolders() const;
    void restoreFolders(const std::function<void()> &betweenFolders);

    /// Runs \a step for the entry \a path and makes a message and the result of what it throws.
    template<class Step>
    void guarded(const QByteArray &path, Step step);
    void fail(const QByteArray &path, const QByteArray &reason, int result);
    void failBySystem(const QByteArray &path, const FileFailure &failure);
    void print(QByteArrayView text, int mostQuiet) const;
    void printContent(QByteArrayView content) const;
    void beginWith(const ArchiveEntry &entry);
    void callService() const;

    const DCLIST &m_options;
    const USERFUNCTION &m_functions;
    QByteArrayList m_includedNames;
    QByteArrayList m_excludedNames;
    int m_result = 0;
    QByteArray m_current; ///< the name at work

    FileDescriptor m_file;
    ArchiveDirectory m_directory;
    std::optional<NameFilter> m_included;
    std::optional<NameFilter> m_excluded;
    std::optional<EntryExtents> m_extents;
    std::optional<TargetFolder> m_target;
    ArchivePassword m_password;
    std::optional<LibzipEntries> m_libzip;
    EntryExtraction m_extraction; ///< for what is printed
    std::optional<ExtractionPool> m_pool;
    QSet<QByteArray> m_atWork; ///< the paths of the pool's tasks
    enum class Replacing { Ask, All, None } m_replacing = Replacing::Ask;
    mode_t m_ordinaryMode;
};
