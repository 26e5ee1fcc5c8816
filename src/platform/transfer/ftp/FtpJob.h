#pragma once

#include "FtpConnection.h"

#include <QPointer>

/// A command at work on a connection that is logged on. When it fails the connection goes on, unless that
/// itself has ended: a job that is deleted has left nothing behind.
class FtpJob : public QObject
{
    Q_OBJECT

public:
    /// Starts the work; finished() or failed() follows.
    void run(FtpConnection &connection);

    /// Closes and removes at once what a job that is over still holds, and lets it hear no more of the
    /// connection.
    virtual void cleanUp();
    /// False while the job works on the local disk alone.
    virtual bool waitsForServer() const { return true; }
    /// True when the server has sent data that was not read yet.
    virtual bool hasInput() const { return false; }
    /// True when the server has acknowledged data since some was sent, or this was asked before. Slow lines
    /// take long to empty what the kernel keeps of an upload.
    virtual bool hasNewAcknowledgement() { return false; }
    /// What has gone wrong while the server's last reply is still awaited.
    const std::optional<TransferFailure> &failure() const { return m_failure; }

Q_SIGNALS:
    void finished(const QString &response);
    void failed(const TransferFailure &failure);
    /// As of FtpControl.
    void heard();

protected:
    virtual void start() = 0;

    /// Runs \a step; a TransferFailure that it throws ends the job.
    void guarded(const std::function<void()> &step);
    /// As FtpControl::ask, but what the handlers throw ends the job alone.
    void ask(const QByteArray &request, const FtpControl::Handler &handler,
             const FtpControl::Beginning &beginning = {});
    /// The same where only a completion is good.
    void demand(const QByteArray &request, const FtpControl::Beginning &next);
    /// Sets the type of the data if it is another one.
    void setType(char type, const FtpControl::Beginning &next);

    FtpConnection &connection() { return *m_connection; }
    void setFailure(const TransferFailure &failure) { m_failure = failure; }

private:
    QPointer<FtpConnection> m_connection;
    std::optional<TransferFailure> m_failure;
};
