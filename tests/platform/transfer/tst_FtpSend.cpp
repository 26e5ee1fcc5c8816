#include "FileNames.h"
#include "Files.h"
#include "FtpServer.h"
#include "InternetTransfer.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "TransferError.h"
#include "TransferProbe.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class FtpSendTest : public testing::Test
{
protected:
    QString put(const QString &name) const
    {
        return QStringLiteral("PUT \"") + local.path() + u'\\' + name + QStringLiteral("\" \"") + name + u'"';
    }
    QByteArray sent(const QByteArray &name) const
    {
        return Files::read(FileNames::fromBytes(remote.file(name)));
    }

    ScratchFolder remote;
    ScratchFolder local;
    FtpServer server{remote.path()};
    TransferProbe probe{server};
};

} // namespace

TEST_F(FtpSendTest, TheFileArrivesWhole)
{
    QByteArray bytes(3'000'001, 'x');
    for (qsizetype i = 0; i < bytes.size(); ++i)
        bytes[i] = char(i * 7 + i / 256);
    local.addFile("a b", bytes);
    remote.addFile("a b", "older");
    EXPECT_EQ(probe.codeOf(put(QStringLiteral("a b"))), 0);
    EXPECT_EQ(sent("a b"), bytes);
    EXPECT_EQ(probe.response(), QString());
    local.addFile("empty");
    EXPECT_EQ(probe.codeOf(put(QStringLiteral("empty"))), 0);
    EXPECT_EQ(sent("empty"), QByteArray());
    EXPECT_EQ(server.commands("TYPE"), QByteArrayList{"TYPE I"});
}

TEST_F(FtpSendTest, NamesKeepTheirBytes)
{
    for (const QByteArray name :
         {"caf\xe9", "a\"b", "a\\b", "bell\a\x1b", " blank ", "a\" \"b", "-rf", "%41#;type=a"}) {
        local.addFile(name, name);
        EXPECT_EQ(probe.codeOf(put(FileNames::fromBytes(name))), 0) << name.constData();
        EXPECT_EQ(sent(name), name);
    }
}

TEST_F(FtpSendTest, OnlyAFileThatCanBeReadIsSent)
{
    local.addFolder("folder");
    ASSERT_EQ(::mkfifo(local.file("pipe").constData(), 0666), 0);
    EXPECT_EQ(probe.codeOf(put(QStringLiteral("none"))), TransferError::FileNotFound);
    EXPECT_EQ(probe.codeOf(put(QStringLiteral("folder"))), TransferError::AccessDenied);
    EXPECT_EQ(probe.codeOf(put(QStringLiteral("pipe"))), TransferError::AccessDenied);
    EXPECT_EQ(probe.codeOf("PUT \"/proc/self\\mem\" \"x\""), TransferError::DeviceError);
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(server.connections(), 1);
}

TEST_F(FtpSendTest, AServerWithoutSpaceIsReported)
{
    local.addFile("a", QByteArray(20'000'000, 'x'));
    for (const char *stage : {"STOR", FtpServer::EndOfData}) {
        server.cutDataAt(100'000, false);
        server.reply(stage, "552 Quota exceeded.");
        EXPECT_EQ(probe.codeOf(put(QStringLiteral("a"))), TransferError::Refused) << stage;
        EXPECT_EQ(probe.session().ResponseInfo(), QStringLiteral("552 Quota exceeded."));
        server.forgetFault(stage);
    }
    server.setReplyBeforeData(true);
    server.reply(FtpServer::EndOfData, "452 Disk full.");
    EXPECT_EQ(probe.codeOf(put(QStringLiteral("a"))), TransferError::Refused);
    EXPECT_EQ(probe.session().ResponseInfo(), QStringLiteral("452 Disk full."));
    EXPECT_EQ(probe.codeOf("CD \"/\""), 0);
    EXPECT_EQ(server.connections(), 1);
}

TEST_F(FtpSendTest, ADataConnectionThatEndsEarlyIsNoSuccess)
{
    local.addFile("a", QByteArray(20'000'000, 'x'));
    server.cutDataAt(100'000, false);
    EXPECT_EQ(probe.codeOf(put(QStringLiteral("a"))), TransferError::ConnectionReset);
    server.cutDataAt(100'000, true);
    EXPECT_EQ(probe.codeOf(put(QStringLiteral("a"))), TransferError::ConnectionLost);
}

TEST_F(FtpSendTest, AFileThatChangesIsSentAsFarAsItIsThere)
{
    local.addFile("a", QByteArray(20'000'000, 'x'));
    server.hold("STOR");
    probe.session().Execute({}, put(QStringLiteral("a")));
    probe.waitFor([&] { return server.isHolding(); });
    ASSERT_EQ(::truncate(local.file("a").constData(), 1000), 0);
    server.release();
    probe.wait();
    EXPECT_EQ(probe.session().ResponseCode(), 0);
    EXPECT_EQ(sent("a").size(), 1000);
}
