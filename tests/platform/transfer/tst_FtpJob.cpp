#include "FtpJob.h"
#include "FtpServer.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "TransferProbe.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

/// Fails as soon as the server has begun to answer, with its last reply still to come.
class FailingJob : public FtpJob
{
public:
    explicit FailingJob(int &replies)
        : m_replies(replies)
    {}

protected:
    void start() override
    {
        ask(
            "CDUP", [&replies = m_replies](const FtpReply &) { ++replies; },
            [] { throw TransferFailure(1); });
    }

private:
    int &m_replies;
};

} // namespace

TEST(FtpJob, AJobThatIsOverHearsNoMore)
{
    const ScratchFolder remote;
    FtpServer server(remote.path());
    server.reply("CDUP", "150 Begun.");
    FtpConnection connection(TransferProbe::logOnTo(server));
    connection.logOn();
    TransferProbe::waitFor([&] { return connection.isLoggedOn(); });

    int replies = 0;
    {
        FailingJob job(replies);
        QSignalSpy failed(&job, &FtpJob::failed);
        job.run(connection);
        TransferProbe::waitFor([&] { return failed.count() == 1; });
        job.cleanUp();
    }
    QSignalSpy heard(&connection.control(), &FtpControl::heard);
    server.sendUnasked("250 Done.\r\n");
    TransferProbe::waitFor([&] { return heard.count() == 1; });
    EXPECT_EQ(replies, 0);
}

TEST(FtpJob, AJobMayOutliveItsConnection)
{
    const ScratchFolder remote;
    FtpServer server(remote.path());
    server.hold("CDUP");
    int replies = 0;
    FailingJob job(replies);
    {
        FtpConnection connection(TransferProbe::logOnTo(server));
        connection.logOn();
        TransferProbe::waitFor([&] { return connection.isLoggedOn(); });
        job.run(connection);
        TransferProbe::waitFor([&] { return server.isHolding(); });
    }
    job.cleanUp();
    EXPECT_EQ(replies, 0);
}
