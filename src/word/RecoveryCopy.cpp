#include "RecoveryCopy.h"

#include "Files.h"
#include "RuntimeError.h"

#include <QFile>

namespace {

QString lockOf(const QString &path)
{
    return path + QStringLiteral(".lock");
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
    QFile::remove(m_path);
    QFile::remove(m_path + QStringLiteral(".new")); // of a write that was stopped
    QFile::remove(lockOf(m_path));
}
