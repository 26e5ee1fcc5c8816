#pragma once

#include "FtpTransfer.h"
#include "ReceivedFile.h"

/// Receives a file with the time of its last change, where the server says that.
class FtpReceive : public FtpTransfer
{
    Q_OBJECT

public:
    /// Throws TransferFailure where the local file cannot be made.
    FtpReceive(const QByteArray &name, const QByteArray &folder, const QByteArray &file);

    void cleanUp() override;
    bool waitsForServer() const override { return !m_isSyncing; }

protected:
    void start() override;
    void take(QByteArrayView bytes) override;
    void done() override;

private:
    void answeredSize(const FtpReply &reply);
    void answeredTime(const FtpReply &reply);
    void synced(int error);

    QByteArray m_name;
    std::optional<ReceivedFile> m_file; ///< until the job is over
    qint64 m_expected = 0;              ///< bytes at least
    qint64 m_received = 0;
    std::optional<qint64> m_modified; ///< seconds since 1970
    bool m_isSyncing = false;
};
