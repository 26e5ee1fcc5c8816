#pragma once

#include "FileLock.h"
#include "RecoveryText.h"

/// The recovery copy of one document: a file that only its user can read, with a lock beside it that is held
/// as long as this lives. The file stays unless remove() is called, and is then an orphan.
///
/// A document whose text makes the suite crash would do so at every start. So whoever opens a copy calls
/// beginOpening() before and endOpening() after, and leaves alone a copy that hasFailedToOpen(). One opening
/// that did not end may be a power cut; the second one is the document's fault.
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
    /// Removes the file and all that is beside it. Does nothing when they do not exist.
    void remove() const;

    /// Two openings have begun whose processes ended before endOpening().
    bool hasFailedToOpen() const;
    /// Is on the disk when this returns. Has no effect where no file can be made.
    void beginOpening() const;
    void endOpening() const;

private:
    QString m_path;
    FileLock m_lock;
};
