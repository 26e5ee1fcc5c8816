#pragma once

#include <QByteArray>
#include <QString>

/// An empty folder for one test, in which files of any names can be made; removed at the end with all in it.
class ScratchFolder
{
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder &) = delete;
    ScratchFolder &operator=(const ScratchFolder &) = delete;

    /// Absolute, without links.
    QString path() const;
    /// The path of \a name, which may be any bytes but "/" and NUL.
    QByteArray file(const QByteArray &name) const { return m_path + '/' + name; }

    void addFile(const QByteArray &name, const QByteArray &content = {}) const;
    void addFolder(const QByteArray &name) const;
    void addLink(const QByteArray &name, const QByteArray &target) const;

private:
    QByteArray m_path;
};
