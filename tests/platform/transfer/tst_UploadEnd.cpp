#include "DataSink.h"
#include "FtpServer.h"
#include "InternetTransfer.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "TransferError.h"
#include "TransferProbe.h"

#include <gtest/gtest.h>

namespace {

/// An upload is whole where its data connection ends in an ordinary way.
class UploadEndTest : public testing::Test
{
protected:
    static constexpr qsizetype size = 40'000'000; // more than the system keeps

    UploadEndTest()
    {
        local.addFile("big", QByteArray(size, 'x'));
        local.addFile("small", "whole");
        server.setPassivePort(sink.serverPort());
        server.reply("STOR", "150 Go on.");
    }

    QString put(const char *name) const
    {
        return QStringLiteral("PUT \"%1\\%2\" \"%2\"").arg(local.path(), QString::fromUtf8(name));
    }
    /// The server has begun to wait for the data.
    void begin(const QString &command)
    {
        probe.session().Execute({}, command);
        probe.waitFor([&] { return sink.isConnected() && !server.commands("STOR").isEmpty(); });
    }
    DataSink::End end()
    {
        sink.readToEnd();
        probe.waitFor([&] { return sink.end() != DataSink::End::None; });
        return sink.end();
    }
    void expectReset()
    {
        EXPECT_EQ(end(), DataSink::End::Reset);
        EXPECT_LT(sink.bytes(), size);
    }

    ScratchFolder remote;
    ScratchFolder local;
    DataSink sink;
    FtpServer server{remote.path()};
    TransferProbe probe{server};
};

} // namespace

TEST_F(UploadEndTest, AWholeFileEndsInAnOrdinaryWay)
{
    begin(put("small"));
    EXPECT_EQ(end(), DataSink::End::Ordinary);
    EXPECT_EQ(sink.bytes(), 5);
    server.sendUnasked("226 Done.\r\n");
    probe.wait();
    EXPECT_EQ(probe.session().ResponseCode(), 0);
}

TEST_F(UploadEndTest, CancelResetsTheData)
{
    begin(put("big"));
    probe.session().Cancel();
    expectReset();
}

TEST_F(UploadEndTest, TheEndOfTheSessionResetsTheData)
{
    begin(put("big"));
    probe.destroy();
    expectReset();
}

TEST_F(UploadEndTest, ATimeOutResetsTheData)
{
    probe.session().setRequestTimeout(1);
    begin(put("big"));
    probe.wait();
    EXPECT_EQ(probe.session().ResponseCode(), TransferError::TimedOut);
    expectReset();
}

TEST_F(UploadEndTest, ALostConnectionResetsTheData)
{
    begin(put("big"));
    server.dropConnections();
    probe.wait();
    EXPECT_EQ(probe.session().ResponseCode(), TransferError::ConnectionLost);
    expectReset();
}

TEST_F(UploadEndTest, ARefusalInTheMiddleResetsTheData)
{
    begin(put("big"));
    server.sendUnasked("452 Disk full.\r\n");
    probe.wait();
    EXPECT_EQ(probe.session().ResponseCode(), TransferError::Refused);
    expectReset();
}

TEST_F(UploadEndTest, AFileThatCannotBeReadResetsTheData)
{
    begin(QStringLiteral("PUT \"/proc/self\\mem\" \"x\""));
    expectReset();
    server.sendUnasked("426 Aborted.\r\n");
    probe.wait();
    EXPECT_EQ(probe.session().ResponseCode(), TransferError::DeviceError);
}
