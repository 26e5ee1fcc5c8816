#pragma once

#include <QByteArray>

/// The folder that an FtpServer serves, seen by one client: its current folder, and names relative to it.
/// Names are bytes. No name leads out of the folder served.
class FtpServerFolder
{
public:
    explicit FtpServerFolder(const QByteArray &root)
        : m_root(root)
    {}

    /// The current folder, "/" for the one that is served.
    QByteArray current() const { return m_current; }
    /// False where there is no such folder.
    bool enter(const QByteArray &name);

    /// The native path of \a name.
    QByteArray path(const QByteArray &name) const { return m_root + absolute(name); }
    bool isFile(const QByteArray &name) const;

    /// The entries of the current folder as lines of MLSD or LIST, with "." and ".." first where \a dots.
    QByteArray machineList(bool dots) const;
    QByteArray list(bool dots) const;

private:
    QByteArray absolute(const QByteArray &name) const;
    QByteArrayList names(bool dots) const;

    QByteArray m_root;
    QByteArray m_current = "/";
};
