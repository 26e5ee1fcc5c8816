#pragma once

#include "ScratchHome.h"
#include "ScratchVariable.h"

/// A desktop on which nothing is installed but what the test puts there. A tool that is started writes its
/// process id and its words into a file.
class BareDesktop
{
public:
    /// Keeps what it installs in \a home.
    explicit BareDesktop(const ScratchHome &home);

    /// Makes \a tool, the name of a desktop file, the one that is installed.
    void install(const char *tool) const;
    void install(const char *tool, const QByteArray &script) const;

    /// Process id and words of the tool that was started, as soon as there is one: "4711 --from gparted".
    QString started() const;

private:
    const ScratchHome &m_home;
    const QString m_bin;
    const QString m_log;
    ScratchVariable m_path;
    ScratchVariable m_dataFolders;
    ScratchVariable m_desktop{"XDG_CURRENT_DESKTOP"};
};
