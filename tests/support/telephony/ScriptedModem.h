#pragma once

#include <QByteArray>
#include <QList>
#include <QSocketNotifier>
#include <QString>
#include <memory>
#include <utility>

/// A modem at the other end of a pseudo-terminal, which answers each command as a test says: "OK" at first.
class ScriptedModem
{
public:
    ScriptedModem();
    ~ScriptedModem();
    ScriptedModem(const ScriptedModem &) = delete;
    ScriptedModem &operator=(const ScriptedModem &) = delete;

    /// False on a machine without pseudo-terminals.
    bool isThere() const { return m_notifier != nullptr; }
    /// The device file of its port.
    QString port() const { return m_port; }

    /// Commands that begin with \a beginning are answered by the bytes \a answer from now on; nothing for an
    /// empty one.
    void answer(const QByteArray &beginning, const QByteArray &answer);
    /// Sends \a bytes on its own.
    void send(const QByteArray &bytes) const;
    void unplug();
    /// Reads nothing any more, and what waits to be read leaves no room for another byte.
    void jam();

    /// The lines so far, without their line ends, the empty ones too.
    QByteArrayList commands() const { return m_commands; }
    /// The only command that begins with "ATD"; fails the test where there is another number of them.
    QByteArray dialCommand() const;

private:
    void read();
    QByteArray answerTo(const QByteArray &command) const;

    int m_modem = -1;
    int m_keepsPort = -1; ///< so that the port does not end whenever nobody has it open
    QString m_port;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QByteArray m_rest;
    QByteArrayList m_commands;
    QList<std::pair<QByteArray, QByteArray>> m_answers;
};
