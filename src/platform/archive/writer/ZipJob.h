#pragma once

#include "ArchiveDirectory.h"
#include "ArchiveRewrite.h"
#include "EntrySource.h"
#include "OldArchive.h"
#include "ZIPUSERFUNCTIONS.h"
#include "ZPOPT.h"

#include <QByteArrayList>
#include <QHash>
#include <memory>
#include <optional>
#include <vector>

/// One job of the zip library: it adds files to an archive, or deletes entries. It decides on the caller's
/// thread what is to be done; the queue reads and compresses, libzip arranges the archive.
class ZipJob
{
public:
    ZipJob(const QByteArray &archive, const QByteArrayList &names, const ZPOPT &options,
           const ZIPUSERFUNCTIONS &functions);
    ~ZipJob();

    /// Returns a ZipResult.
    int run();

private:
    int runSteps();
    void openOld();
    void addIndex(quint64 index);
    void openContainer();

    int deleteEntries();
    qint64 sizeBeforeEntries() const;
    int addFiles();
    std::vector<SourceFile> search();
    std::vector<SourceFile> collect();
    bool isWanted(const SourceFile &file) const;
    void findReplaced(SourceFile &file) const;
    void askPassword();
    QByteArray requestPassword();
    void askComment();
    void addAll();
    void setComment();
    void addFolder(const SourceFile &file);
    void addFile(const SourceFile &file);
    void describe(const SourceFile &file, zip_uint64_t index);
    void addVolumeLabel();
    void close();
    void freeOld();
    void check(zip_int64_t result) const;
    void rethrowFailure() const;

    void printDone(const EntrySource &entry) const;
    void print(const QByteArray &text) const;
    void warn(const QByteArray &name, const QByteArray &reason) const;
    void callService() const;
    void callServiceAt(std::size_t index) const;

    const QByteArray m_path; ///< without links
    const QByteArrayList m_names;
    const ZPOPT m_options;
    const ZIPUSERFUNCTIONS m_functions;
    QByteArray m_current; ///< the name at work
    bool m_hasMissed = false;

    OldArchive m_old;
    ArchiveDirectory m_directory;         ///< of the old archive
    QHash<QByteArray, quint64> m_indices; ///< of its entries
    SourceFiles m_files;                  ///< to be written, in the order of their entries
    QByteArray m_password;
    QByteArray m_comment;
    QByteArray m_label; ///< of the volume; empty where there is none to be stored

    std::optional<CompressionQueue> m_queue;
    EntrySource::Events m_events;
    std::vector<std::unique_ptr<EntrySource>> m_sources;
    std::optional<ArchiveRewrite> m_rewrite;
    std::unique_ptr<zip_t, void (*)(zip_t *)> m_archive;
};
