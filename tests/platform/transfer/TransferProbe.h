#pragma once

#include "InternetTransfer.h"

#include <QList>
#include <functional>

class FtpServer;

/// A session that is used as a window uses it, and what it reported.
class TransferProbe
{
public:
    /// As the user that \a server has.
    static LogOn logOnTo(const FtpServer &server);

    /// Logs on to \a server as its user.
    explicit TransferProbe(const FtpServer &server);
    TransferProbe(const QString &address, const QString &user, const QString &password);

    InternetTransfer &session() { return *m_session; }
    /// Deletes the session.
    void destroy() { m_session.reset(); }

    /// Runs a command to its end; its last state.
    int run(const QString &command);
    int run(const char *command) { return run(QString::fromUtf8(command)); }
    /// Runs it and returns the code that it ended with; 0 for success.
    int codeOf(const QString &command);
    int codeOf(const char *command) { return codeOf(QString::fromUtf8(command)); }

    void start(const char *command) { m_session->Execute({}, QString::fromUtf8(command)); }
    /// Runs pending events until the command has ended.
    void wait();
    /// Runs them until \a condition holds, which some event has to bring about.
    static void waitFor(const std::function<bool()> &condition);

    /// The response, read in parts of \a size.
    QString response(int size = 4096);
    /// Its rows.
    QStringList rows();

    const QList<int> &states() const { return m_states; }
    void forgetStates() { m_states.clear(); }

private:
    std::unique_ptr<InternetTransfer> m_session;
    QList<int> m_states;
};
