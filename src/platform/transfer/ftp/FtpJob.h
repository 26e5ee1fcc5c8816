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
    /// True when the whole job has taken too long: signs of the server give it no more time.
    virtual bool isOverdue() const { return false; }
    /// What has gone wrong while the server's last reply is still awaited.
    const std::optional<TransferFailure> &failure() const { return m_failure; }

Q_SIGNALS:
    void finished(const QString &response);
    void failed(const TransferFailure &failure);
    /// As of FtpControl.
    void heard();

protected:
    using Handler = FtpControl::Handler;
    using Step = FtpControl::Step;

    virtual void start() = 0;

    /// Runs \a step; a TransferFailure that it throws ends the job.
    void guarded(const Step &step);
    /// As FtpControl::ask, but what the handlers throw ends the job alone.
    void ask(const QByteArray &request, const Handler &handler, const Step &preliminary = {});
    /// The same where only a completion is good, behind which \a next is run.
    void demand(const QByteArray &request, const Step &next);
    /// Sets the type of the data if it is another one, and runs \a next.
    void setType(char type, const Step &next);

    FtpConnection &connection() { return *m_connection; }
    void setFailure(const TransferFailure &failure) { m_failure = failure; }

private:
    QPointer<FtpConnection> m_connection;
    std::optional<TransferFailure> m_failure;
};
