#pragma once

#include "FtpJob.h"
#include "LogOn.h"
#include "TransferCommand.h"

#include <QList>
#include <QSet>
#include <QTimer>
#include <memory>

/// What runs behind an InternetTransfer: its connection, the command at work and the states that are still to
/// be reported. It says what to do when something fails; how a command works is known to the jobs.
class TransferSession : public QObject
{
    Q_OBJECT

public:
    TransferSession();
    ~TransferSession() override;

    /// As InternetTransfer's. \a logOn is for a command that has to log on; its time-out is for each.
    void execute(const QString &command, const LogOn &logOn);
    void cancel();
    bool isExecuting() const { return m_isExecuting; }
    QString takeResponse(int size);
    int code() const { return m_code; }
    QString info() const { return m_info; }

Q_SIGNALS:
    void stateChanged(int state);

private:
    void start(const QString &text);
    void closeByCommand();
    void makeJob(const TransferCommand &command);
    void sweepOnce(const QByteArray &folder);
    void connectToServer();
    void runJob();

    void waitLonger();
    void timeOut();
    void connectionFailed(const TransferFailure &failure);
    void endJob();
    bool closeConnection();
    void succeed(const QString &response);
    void fail(const TransferFailure &failure);

    void post(int state);
    void deliverSoon();
    void deliver();

    LogOn m_logOn;
    std::unique_ptr<FtpConnection> m_connection;
    std::unique_ptr<FtpJob> m_job;
    QTimer m_timeout;
    QSet<QByteArray> m_swept; ///< the local folders without what killed processes left
    QList<int> m_states;      ///< to be reported
    quint64 m_command = 0;    ///< counts the commands and their ends by cancel()
    bool m_isExecuting = false;
    bool m_isLost = false; ///< a connection that somebody was logged on by
    QString m_response;
    qsizetype m_taken = 0; ///< of the response
    int m_code = 0;
    QString m_info;
};
