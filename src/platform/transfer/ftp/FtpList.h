#pragma once

#include "FtpListing.h"
#include "FtpTransfer.h"

/// Lists the current folder: by MLSD where the server knows it, else by LIST. The response is the rows. What
/// a server sends has a limit (see FtpListing), but not the time that it takes: while the server goes on
/// sending anything the list goes on too, and the user may cancel it at any moment.
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
    void request();

    FtpListing m_listing;
};
