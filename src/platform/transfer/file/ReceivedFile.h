#pragma once

#include "PendingFile.h"

/// A file that is being received: a PendingFile that gets its name when all data is there, unless something
/// else has that name by now.
///
/// The functions throw TransferFailure with the number of the platform's file error.
class ReceivedFile
{
public:
    /// \a folder is absolute; \a name is no path. Throws 80 where the name is taken.
    ReceivedFile(const QByteArray &folder, const QByteArray &name);

    /// Removes what killed processes left of such files in \a folder. Reads the whole folder. False, and
    /// nothing done, when it cannot be opened.
    static bool sweep(const QByteArray &folder) noexcept;

    void write(QByteArrayView bytes);
    /// Seconds since 1970.
    void setModified(time_t time) { m_file.setModified(time); }

    /// As PendingFile's.
    std::function<int()> syncing() const { return m_file.syncing(); }

    /// Gives the file its name. Throws 80 where the name is taken.
    void publish();

private:
    QByteArray m_name;
    PendingFile m_file;
};
