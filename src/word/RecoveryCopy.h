#pragma once

#include "FileLock.h"
#include "RecoveryText.h"

/// The recovery copy of one document: a file that only its user can read, with a lock beside it that is held
/// as long as this lives. The file stays unless remove() is called, and is then an orphan.
class RecoveryCopy
{
public:
    /// Takes over \a path and its lock, if no other process holds it.
    explicit RecoveryCopy(const QString &path);

    const QString &path() const { return m_path; }
    bool isHeld() const { return m_lock.isHeld(); }

    /// Nothing where the file is empty, missing or damaged; it is then left as it is.
    std::optional<RecoveryText> read() const;
    /// Returns false when the text could not be written; the copy before is then whole.
    bool write(const RecoveryText &text) const;
    /// Removes the file and its lock. Does nothing when they do not exist.
    void remove() const;

private:
    QString m_path;
    FileLock m_lock;
};
