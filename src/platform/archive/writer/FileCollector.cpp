#include "FileCollector.h"

#include "FilePattern.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int recurseFolders = 1;
constexpr int recursePatterns = 2;

/// Ends a search.
struct Ended
{};

std::optional<SourceFile> stateOf(const QByteArray &path)
{
    struct stat state = {};
    if (::stat(path.constData(), &state) != 0)
        return {};
    SourceFile file;
    file.path = path;
    file.size = state.st_size;
    file.modified = state.st_mtime;
    file.mode = state.st_mode;
    file.device = state.st_dev;
    file.inode = state.st_ino;
    file.isFolder = S_ISDIR(state.st_mode);
    return file;
}

bool isRealFolder(const QByteArray &path)
{
    struct stat state = {};
    return ::lstat(path.constData(), &state) == 0 && S_ISDIR(state.st_mode);
}

QByteArray joined(const QByteArray &folder, const QByteArray &name)
{
    return folder.isEmpty() || folder.endsWith('/') ? folder + name : folder + '/' + name;
}

} // namespace

FileCollector::FileCollector(const ZPOPT &options)
    : m_options(options)
{}

FileCollector::Found FileCollector::collect(const QByteArrayList &names)
{
    try {
        if (m_options.fRecurse == recursePatterns)
            addMatchesBelow(names);
        else
            std::for_each(names.cbegin(), names.cend(), [this](const QByteArray &name) { addNamed(name); });
    } catch (const Ended &) {
    }
    return std::move(m_found);
}

void FileCollector::addNamed(const QByteArray &name)
{
    const auto file = stateOf(name);
    if (!file && FilePattern::isPattern(name)) {
        addMatches(name);
        return;
    }
    add(name);
    if (file && file->isFolder && m_options.fRecurse == recurseFolders)
        addBelow(name);
}

void FileCollector::addMatches(const QByteArray &pattern)
{
    const qsizetype name = pattern.lastIndexOf('/') + 1;
    const QByteArray folder = pattern.left(name);
    bool isAny = false;
    for (const QByteArray &found : namesIn(folder)) {
        checkStopped();
        const QByteArray path = joined(folder, found);
        if (!FilePattern::matchesFile(pattern.sliced(name), found))
            continue;
        isAny = true;
        add(path);
        if (m_options.fRecurse == recurseFolders && isRealFolder(path))
            addBelow(path);
    }
    if (!isAny)
        warn(pattern, "nothing matches");
}

void FileCollector::addBelow(const QByteArray &folder)
{
    walk(folder, [this](const QByteArray &path) { add(path); });
}

void FileCollector::addMatchesBelow(const QByteArrayList &patterns)
{
    QByteArrayList unused = patterns;
    walk({}, [&](const QByteArray &path) {
        bool isMatch = false;
        for (const QByteArray &pattern : patterns) {
            if (!FilePattern::matchesFile(pattern, path))
                continue;
            isMatch = true;
            unused.removeAll(pattern);
        }
        if (isMatch)
            add(path);
    });
    for (const QByteArray &pattern : std::as_const(unused))
        warn(pattern, "nothing matches");
}

/// Calls \a visit for everything below \a folder; empty for the current one.
template<class Visit>
void FileCollector::walk(const QByteArray &folder, Visit visit)
{
    QByteArrayList left = {folder};
    while (!left.isEmpty()) {
        const QByteArray at = left.takeLast();
        for (const QByteArray &name : namesIn(at)) {
            checkStopped();
            const QByteArray path = joined(at, name);
            visit(path);
            if (isRealFolder(path))
                left.append(path);
        }
    }
}

/// Sorted, so that the same files make the same archive. A folder that is not there has none.
QByteArrayList FileCollector::namesIn(const QByteArray &folder)
{
    QByteArrayList names;
    const QByteArray path = folder.isEmpty() ? QByteArray(".") : folder;
    errno = 0;
    const std::unique_ptr<DIR, int (*)(DIR *)> entries(::opendir(path.constData()), ::closedir);
    while (const dirent *entry = entries ? ::readdir(entries.get()) : nullptr) {
        checkStopped();
        const QByteArray name(entry->d_name);
        if (name != "." && name != ".." && (m_options.fSystem || !name.startsWith('.')))
            names.append(name);
        errno = 0; // only so the end differs from a failure
    }
    if (errno != 0 && errno != ENOENT && errno != ENOTDIR)
        miss(path, std::strerror(errno));
    std::sort(names.begin(), names.end());
    return names;
}

void FileCollector::checkStopped() const
{
    if (m_isStopped)
        throw Ended();
}

void FileCollector::add(const QByteArray &path)
{
    checkStopped();
    auto file = stateOf(path);
    if (!file) {
        miss(path, std::strerror(errno));
    } else if (file->isFolder) {
        if (!m_options.fNoDirEntries && !m_options.fJunkDir)
            addFile(std::move(*file));
    } else if (!S_ISREG(file->mode)) {
        warn(path, "it is no file");
    } else if (::faccessat(AT_FDCWD, path.constData(), R_OK, AT_EACCESS) != 0) {
        miss(path, std::strerror(errno));
    } else {
        addFile(std::move(*file));
    }
}

void FileCollector::addFile(SourceFile file)
{
    const auto isSame = [&](const SourceFile &other) { return file.isSameFile(other); };
    if (std::any_of(m_leftOut.cbegin(), m_leftOut.cend(), isSame)) {
        warn(file.path, "it is the archive");
        return;
    }
    file.name = entryName(file.path);
    if (file.name.isEmpty())
        return;
    if (file.isFolder)
        file.name += '/';
    if (const auto found = m_byName.constFind(file.name); found != m_byName.cend()) {
        if (m_found.files[*found].isSameFile(file))
            return;
        miss(file.path, "another file has the same name in the archive");
        m_found.hasTwoOfOneName = true;
        throw Ended();
    }
    m_byName.insert(file.name, m_found.files.size());
    m_found.files.push_back(std::move(file));
}

/// Without root, "." and "..", so that no name leads out of the folder that the archive is extracted to.
QByteArray FileCollector::entryName(const QByteArray &path) const
{
    QByteArrayList parts;
    for (const QByteArray &part : path.split('/')) {
        if (part == "..")
            parts = parts.isEmpty() ? parts : parts.first(parts.size() - 1);
        else if (!part.isEmpty() && part != ".")
            parts.append(part);
    }
    if (m_options.fJunkDir && !parts.isEmpty())
        return parts.constLast();
    return parts.join('/');
}

void FileCollector::warn(const QByteArray &name, const QByteArray &reason)
{
    m_found.warnings.push_back({name, reason});
}

void FileCollector::miss(const QByteArray &name, const QByteArray &reason)
{
    warn(name, reason);
    m_found.hasMissed = true;
}
