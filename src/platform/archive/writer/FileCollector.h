#pragma once

#include "SourceFile.h"
#include "ZPOPT.h"

#include <QByteArrayList>
#include <QHash>
#include <atomic>
#include <vector>

/// Finds the files that the names of a job mean. A file that is named is taken; patterns and folders leave
/// out hidden files unless fSystem is set. Links are followed, but for links to folders below a folder.
///
/// A search asks the system about each file, which lasts where a server does not answer. So it may run on a
/// thread of its own.
class FileCollector
{
public:
    /// A name that is left out.
    struct Warning
    {
        QByteArray name;
        QByteArray reason;
    };

    struct Found
    {
        std::vector<SourceFile> files; ///< in the order in which they are found, each once
        std::vector<Warning> warnings;
        bool hasMissed = false;       ///< some file or folder cannot be read
        bool hasTwoOfOneName = false; ///< in the archive, which ends the search
    };

    explicit FileCollector(const ZPOPT &options);

    /// A file that is never taken: the archive itself.
    void leaveOut(const SourceFile &file) { m_leftOut.push_back(file); }

    /// Called once.
    Found collect(const QByteArrayList &names);

    /// Any thread may call it: the search ends at the next file.
    void stop() { m_isStopped = true; }

private:
    void addNamed(const QByteArray &name);
    void addMatches(const QByteArray &pattern);
    void addBelow(const QByteArray &folder);
    void addMatchesBelow(const QByteArrayList &patterns);
    template<class Visit>
    void walk(const QByteArray &folder, Visit visit);
    QByteArrayList namesIn(const QByteArray &folder);
    void checkStopped() const;

    void add(const QByteArray &path);
    void addFile(SourceFile file);
    QByteArray entryName(const QByteArray &path) const;
    void warn(const QByteArray &name, const QByteArray &reason);
    void miss(const QByteArray &name, const QByteArray &reason);

    const ZPOPT m_options;
    std::vector<SourceFile> m_leftOut;
    Found m_found;
    QHash<QByteArray, std::size_t> m_byName; ///< indices of the files
    std::atomic<bool> m_isStopped = false;
};
