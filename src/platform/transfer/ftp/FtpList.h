#pragma once

#include "FtpListing.h"
#include "FtpTransfer.h"

#include <QElapsedTimer>

/// Lists the current folder: by MLSD where the server knows it, else by LIST. The response is the rows. What
/// a server sends has a limit (see FtpListing), and so has the time that it takes: ten minutes, and a second
/// more for each thousand bytes.
class FtpList : public FtpTransfer
{
    Q_OBJECT

public:
    FtpList();

protected:
    void start() override;
    void take(QByteArrayView bytes) override;
    bool recoverFrom(const FtpReply &refusal) override;
    void done() override;

private:
    void narrowFacts();
    void answeredFacts(const FtpReply &reply);
    void request();

    FtpListing m_listing;
    QElapsedTimer m_time; ///< since the list was asked for
    qint64 m_size = 0;    ///< received, in bytes
};
