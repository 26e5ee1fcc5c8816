#pragma once

#include <QByteArray>
#include <functional>
#include <sys/types.h>

/// A file that is being received. Its data is in a hidden file of an own name, in the same folder, until all
/// of it is there; then it gets its name, unless something else has that name by now. Until then the
/// destructor removes it.
///
/// The functions throw TransferFailure with the number of the platform's file error.
class ReceivedFile
{
public:
    /// Makes the hidden file. \a folder is absolute; \a name is no path. Throws 80 where the name is taken.
    ReceivedFile(const QByteArray &folder, const QByteArray &name);
    ~ReceivedFile();
    ReceivedFile(const ReceivedFile &) = delete;
    ReceivedFile &operator=(const ReceivedFile &) = delete;

    void write(QByteArrayView bytes);
    /// Seconds since 1970.
    void setModified(time_t time);

    /// A function, for any thread, that writes to the disk what the system still holds, and returns an errno
    /// value or 0.
    std::function<int()> syncing() const;

    /// Gives the file its name. Throws 80 where the name is taken; the data is then removed.
    void publish();

private:
    QByteArray m_name;
    QByteArray m_hidden; ///< the name until publish
    int m_folder = -1;
    int m_file = -1;
};
