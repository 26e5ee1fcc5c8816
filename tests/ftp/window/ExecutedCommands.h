#pragma once

#include <QStringList>

/// Hears the text of each command that is given to InternetTransfer::Execute, before the session reads it.
/// The linker leads all calls of the test program to ExecutedCommands.cpp.
class ExecutedCommands
{
public:
    ExecutedCommands();
    ~ExecutedCommands();
    ExecutedCommands(const ExecutedCommands &) = delete;
    ExecutedCommands &operator=(const ExecutedCommands &) = delete;

    const QStringList &texts() const { return m_texts; }
    void forget() { m_texts.clear(); }
    void note(const QString &command) { m_texts << command; }

private:
    QStringList m_texts;
};
