#pragma once

#include "ScratchFolder.h"
#include "ScratchVariable.h"

#include <QStringList>

/// A program "snapper" of a test's own, which is found before any other one and notes its arguments.
class ScratchSnapper
{
public:
    ScratchSnapper();

    /// What it prints for the command \a command ("list-configs", "list" or "create"), and with which code
    /// and message it ends.
    void answer(const QByteArray &command, const QByteArray &output, int code = 0,
                const QByteArray &message = {});
    /// Runs \a script of the shell for \a command.
    void runs(const QByteArray &command, const QByteArray &script);
    void uninstall();

    /// The arguments of each call but those for the lists of configurations, joined by "|".
    QStringList calls() const;

private:
    ScratchFolder m_folder;
    ScratchVariable m_path;
};
