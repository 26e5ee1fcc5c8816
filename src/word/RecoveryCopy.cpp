#include "RecoveryCopy.h"

#include "ErrorReports.h"
#include "Files.h"
#include "RuntimeError.h"

#include <QDir>
#include <QFile>

namespace {

QString lockOf(const QString &path)
{
    return path + QStringLiteral(".lock");
}

constexpr int openingsAllowed = 2;

/// The file that exists while the copy is being opened, with a byte for each opening.
QString markOf(const QString &path)
{
    return path + QStringLiteral(".opening");
}

} // namespace

RecoveryCopy::RecoveryCopy(const QString &path)
    : m_path(path)
    , m_lock(lockOf(path), FileLock::IfTaken::GiveUp)
{}

std::optional<RecoveryText> RecoveryCopy::read() const
{
    try {
        return RecoveryText::fromBytes(Files::read(m_path));
    } catch (const RuntimeError &) {
        return std::nullopt;
    }
}

bool RecoveryCopy::write(const RecoveryText &text) const
{
    try {
        Files::writeLocked(m_path, text.toBytes());
        return true;
    } catch (const RuntimeError &) {
        return false;
    }
}

void RecoveryCopy::remove() const
{
    const QFileInfo file(m_path);
    const QDir folder = file.dir();
    for (const QString &name : folder.entryList({file.fileName() + u'*'}, QDir::Files)) {
        if (folder.filePath(name) != lockOf(m_path))
            QFile::remove(folder.filePath(name));
    }
    QFile::remove(lockOf(m_path)); // the last one: until then no other process touches the others
}

bool RecoveryCopy::hasFailedToOpen() const
{
    return QFileInfo(markOf(m_path)).size() >= openingsAllowed;
}

void RecoveryCopy::beginOpening() const
{
    const QByteArray openings(QFileInfo(markOf(m_path)).size() + 1, '.');
    ignoreErrors([&] { Files::write(markOf(m_path), openings); });
}

void RecoveryCopy::endOpening() const
{
    QFile::remove(markOf(m_path));
}
