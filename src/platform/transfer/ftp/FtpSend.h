#pragma once

#include "FtpTransfer.h"
#include "SentFile.h"

/// Sends a file, as much of it as there is when its end is reached.
class FtpSend : public FtpTransfer
{
    Q_OBJECT

public:
    /// Throws TransferFailure where the local file \a path cannot be read.
    FtpSend(const QByteArray &path, const QByteArray &name);

protected:
    void start() override;
    QByteArray give() override;
    void done() override;

private:
    SentFile m_file;
    QByteArray m_name;
};
