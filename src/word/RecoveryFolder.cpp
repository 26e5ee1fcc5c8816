#include "RecoveryFolder.h"

#include "Paths.h"

#include <QDateTime>
#include <QDir>
#include <algorithm>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString copyName = QStringLiteral("copy-XXXXXX");
constexpr int attempts = 3; // to make a copy; one fails only when another process starts at that moment

void makeFolder()
{
    Paths::makeStateFolder();
    ::mkdir(QFile::encodeName(RecoveryFolder::path()).constData(), 0700);
}

/// nullptr where none can be made, or where another process that starts at this moment has taken it for one
/// that was never written.
std::unique_ptr<RecoveryCopy> tryToMakeCopy()
{
    QByteArray name = QFile::encodeName(RecoveryFolder::path() + u'/' + copyName);
    const int file = ::mkstemp(name.data()); // its mode, 0600, is kept by each write
    if (file < 0)
        return nullptr;
    ::close(file);
    auto copy = std::make_unique<RecoveryCopy>(QFile::decodeName(name));
    if (copy->isHeld() && QFile::exists(copy->path()))
        return copy;
    QFile::remove(copy->path());
    return nullptr;
}

/// The paths of all copies, also of those of which nothing but a lock or half a write is left.
QStringList copies()
{
    const QDir folder(RecoveryFolder::path());
    QStringList paths;
    for (const QString &name : folder.entryList({QStringLiteral("copy-??????*")}, QDir::Files))
        paths.append(folder.filePath(name.left(copyName.size())));
    paths.removeDuplicates();
    std::stable_sort(paths.begin(), paths.end(), [](const QString &a, const QString &b) {
        return QFileInfo(a).lastModified() < QFileInfo(b).lastModified();
    });
    return paths;
}

} // namespace

QString RecoveryFolder::path()
{
    return Paths::stateFolder() + QStringLiteral("/recovery");
}

std::unique_ptr<RecoveryCopy> RecoveryFolder::makeCopy()
{
    makeFolder();
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (auto copy = tryToMakeCopy())
            return copy;
    }
    return nullptr;
}

std::vector<std::unique_ptr<RecoveryCopy>> RecoveryFolder::takeOrphans()
{
    std::vector<std::unique_ptr<RecoveryCopy>> orphans;
    for (const QString &name : copies()) {
        auto copy = std::make_unique<RecoveryCopy>(name);
        if (!copy->isHeld())
            continue;
        if (QFileInfo(name).size() > 0)
            orphans.push_back(std::move(copy));
        else
            copy->remove();
    }
    return orphans;
}
