#pragma once

#include "FtpListing.h"
#include "FtpTransfer.h"

/// Lists the current folder: by MLSD where the server knows it, else by LIST. The response is the rows.
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
    void request();

    FtpListing m_listing;
};
