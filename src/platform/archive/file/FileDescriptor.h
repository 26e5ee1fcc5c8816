#pragma once

#include <QByteArray>

/// An open file or folder, closed at the end. All functions but the constructors throw FileFailure.
class FileDescriptor
{
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor)
        : m_descriptor(descriptor)
    {}
    ~FileDescriptor();
    FileDescriptor(FileDescriptor &&other) noexcept;
    FileDescriptor &operator=(FileDescriptor &&other) noexcept;

    /// \a flags are those of open().
    static FileDescriptor open(const QByteArray &path, int flags);
    /// An ordinary file, for reading. Does not wait for whoever writes to a pipe; fails with ENOTSUP where \a
    /// path is something else, but for EISDIR where it is a folder.
    static FileDescriptor openOrdinary(const QByteArray &path);
    /// The open file \a descriptor again, with the same locks.
    static FileDescriptor duplicateOf(int descriptor);
    /// The folder that \a path is in.
    static FileDescriptor openFolderOf(const QByteArray &path);

    bool isOpen() const { return m_descriptor >= 0; }
    int get() const { return m_descriptor; }

    qint64 size() const;
    /// The number of bytes read: fewer than \a size only at the end of the file.
    qsizetype readAt(qint64 offset, char *to, qsizetype size) const;

private:
    int m_descriptor = -1;
};
