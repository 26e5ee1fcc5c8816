#pragma once

#include "ScratchFolder.h"
#include "ScratchVariable.h"

/// Programs of a test's own, which are found before those of the same name that are installed.
class ScratchPrograms
{
public:
    enum class Others { Found, Missing };

    /// With Others::Missing no program outside this folder is found, but for the administrator's.
    explicit ScratchPrograms(Others others = Others::Found);

    /// A program \a name that runs \a script of the shell; "$folder" in it is file("").
    void add(const QByteArray &name, const QByteArray &script) const;
    /// A program \a name that puts its arguments, one a line, into the file \a name + ".calls".
    void addRecorder(const QByteArray &name) const;

    /// The path of \a name among the programs.
    QByteArray file(const QByteArray &name) const { return m_folder.file(name); }
    /// The content of a file there; empty where there is none.
    QByteArray content(const QByteArray &name) const;

private:
    ScratchFolder m_folder;
    ScratchVariable m_path;
};
