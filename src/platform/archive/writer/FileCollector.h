#pragma once

#include "SourceFile.h"
#include "ZPOPT.h"

#include <QByteArrayList>
#include <QHash>
#include <functional>
#include <vector>

/// Finds the files that the names of a job mean. A file that is named is taken; patterns and folders leave
/// out hidden files unless fSystem is set. Links are followed, but for links to folders below a folder.
class FileCollector
{
public:
    /// \a warn is called with each name that is left out, and why, \a betweenFiles now and then; what it
    /// throws ends the search.
    FileCollector(const ZPOPT &options, std::function<void(const QByteArray &name, const char *reason)> warn,
                  std::function<void()> betweenFiles);

    /// A file that is never taken: the archive itself.
    void leaveOut(const SourceFile &file) { m_leftOut.push_back(file); }

    /// In the order in which they are found, each once. Throws JobEnd where two files would have one name.
    std::vector<SourceFile> collect(const QByteArrayList &names);

    /// Some file or folder cannot be read.
    bool hasMissed() const { return m_hasMissed; }

private:
    void addNamed(const QByteArray &name);
    void addMatches(const QByteArray &pattern);
    void addBelow(const QByteArray &folder);
    void addMatchesBelow(const QByteArrayList &patterns);
    template<class Visit>
    void walk(const QByteArray &folder, Visit visit);
    QByteArrayList namesIn(const QByteArray &folder);
    void countFile();

    void add(const QByteArray &path);
    void addFile(SourceFile file);
    QByteArray entryName(const QByteArray &path) const;
    void miss(const QByteArray &name, const char *reason);

    const ZPOPT &m_options;
    std::function<void(const QByteArray &, const char *)> m_warn;
    std::function<void()> m_betweenFiles;
    std::vector<SourceFile> m_leftOut;
    std::vector<SourceFile> m_files;
    QHash<QByteArray, std::size_t> m_byName; ///< indices of m_files
    std::size_t m_count = 0;                 ///< of files looked at
    bool m_hasMissed = false;
};
