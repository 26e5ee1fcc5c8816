#include "AsUser.h"
#include "FailingCalls.h"
#include "FailingWrites.h"
#include "FileNames.h"
#include "Files.h"
#include "FtpServer.h"
#include "FullDisk.h"
#include "HostileNames.h"
#include "InternetTransfer.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "ScratchVariable.h"
#include "SmallDisk.h"
#include "TransferError.h"
#include "TransferProbe.h"

#include <QDir>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class FtpReceiveTest : public testing::Test
{
protected:
    QString get(const QString &name) const
    {
        return QStringLiteral("GET \"") + name + QStringLiteral("\" \"") + local.path() + u'\\' + name + u'"';
    }
    /// What is in the local folder, hidden files too.
    QByteArrayList localNames() const
    {
        QByteArrayList names;
        for (const QString &name :
             QDir(local.path())
                 .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot))
            names.append(FileNames::toBytes(name));
        return names;
    }
    QByteArray localContent(const QByteArray &name) const
    {
        return Files::read(FileNames::fromBytes(local.file(name)));
    }

    ScratchFolder remote;
    ScratchFolder local;
    FtpServer server{remote.path()};
    TransferProbe probe{server};
};

/// All byte values, so that no conversion of lines passes unseen.
QByteArray content(qsizetype size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    for (qsizetype i = 0; i < size; ++i)
        bytes[i] = char(i * 7 + i / 256);
    return bytes;
}

} // namespace

TEST_F(FtpReceiveTest, TheFileComesWholeWithItsTime)
{
    const QByteArray bytes = content(3'000'001);
    remote.addFile("a b", bytes);
    const timespec times[] = {{1'000'000'000, 0}, {1'234'567'890, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, remote.file("a b").constData(), times, 0), 0);
    EXPECT_EQ(probe.codeOf(get(QStringLiteral("a b"))), 0);
    EXPECT_EQ(probe.response(), QString());
    EXPECT_EQ(localNames(), QByteArrayList{"a b"});
    EXPECT_EQ(localContent("a b"), bytes);
    struct stat state = {};
    ASSERT_EQ(::stat(local.file("a b").constData(), &state), 0);
    EXPECT_EQ(state.st_mtim.tv_sec, 1'234'567'890);
    const mode_t mask = ::umask(0);
    ::umask(mask);
    EXPECT_EQ(state.st_mode & 07777, 0666 & ~mask);
}

/// Half past two does not exist there on that day.
TEST_F(FtpReceiveTest, TheTimeIsThatOfTheWholeWorld)
{
    const ScratchVariable zone("TZ", "Europe/Berlin");
    remote.addFile("a");
    server.reply("MDTM", "213 20260329023000.5");
    EXPECT_EQ(probe.codeOf(get(QStringLiteral("a"))), 0);
    struct stat state = {};
    ASSERT_EQ(::stat(local.file("a").constData(), &state), 0);
    EXPECT_EQ(state.st_mtim.tv_sec, 1'774'751'400);
}

TEST_F(FtpReceiveTest, AnEmptyFileIsAFileToo)
{
    remote.addFile("a");
    EXPECT_EQ(probe.codeOf(get(QStringLiteral("a"))), 0);
    EXPECT_EQ(localContent("a"), QByteArray());
}

TEST_F(FtpReceiveTest, SizeAndTimeMayBeRefused)
{
    remote.addFile("a", "12345");
    server.reply("MDTM", "500 Unknown.");
    server.reply("SIZE", "550 Not in this mode.");
    EXPECT_EQ(probe.codeOf(get(QStringLiteral("a"))), 0);
    EXPECT_EQ(localContent("a"), "12345");
    server.reply("MDTM", "213 yesterday");
    server.reply("SIZE", "213 ?");
    remote.addFile("b", "1");
    EXPECT_EQ(probe.codeOf(get(QStringLiteral("b"))), 0);
}

TEST_F(FtpReceiveTest, WhatExistsIsNeverOverwritten)
{
    local.addFile("a", "mine");
    local.addFile(".hidden", "mine");
    local.addFolder("folder");
    local.addLink("link", "/nowhere/at/all");
    for (const char *name : {"a", ".hidden", "folder", "link"}) {
        remote.addFile(name, "theirs");
        EXPECT_EQ(probe.codeOf(get(QString::fromUtf8(name))), TransferError::FileExists) << name;
    }
    EXPECT_EQ(server.connections(), 0);
    EXPECT_EQ(localContent("a"), "mine");
    EXPECT_EQ(localContent(".hidden"), "mine");
    EXPECT_EQ(localNames().size(), 4);
}

TEST_F(FtpReceiveTest, WhatIsMadeMeanwhileIsNotOverwrittenEither)
{
    remote.addFile("a", "theirs");
    server.hold(FtpServer::EndOfData);
    probe.session().Execute({}, get(QStringLiteral("a")));
    probe.waitFor([&] { return server.isHolding(); });
    EXPECT_EQ(localNames().size(), 1);
    EXPECT_TRUE(localNames().constFirst().startsWith(".quill-"));
    local.addFile("a", "mine");
    server.release();
    probe.wait();
    EXPECT_EQ(probe.session().ResponseCode(), TransferError::FileExists);
    EXPECT_EQ(localNames(), QByteArrayList{"a"});
    EXPECT_EQ(localContent("a"), "mine");
    EXPECT_EQ(probe.codeOf("DIR"), 0);
}

TEST_F(FtpReceiveTest, NoNameLeadsOutOfTheFolder)
{
    remote.addFile("x", "theirs");
    for (const char *name : {"../x", "/x", "/etc/x", "a/../../x", ".", "..", "sub/x"})
        EXPECT_EQ(probe.codeOf(get(QString::fromUtf8(name))), TransferError::InvalidName) << name;
    EXPECT_EQ(probe.codeOf(get(QString())), TransferError::InvalidParameter);
    EXPECT_EQ(server.connections(), 0);
    EXPECT_EQ(localNames(), QByteArrayList());
}

TEST_F(FtpReceiveTest, HostileNamesKeepTheirBytes)
{
    for (const HostileName &name : HostileNames::files()) {
        if (name.bytes.contains('\n') || name.bytes.contains('\r'))
            continue;
        remote.addFile(name.bytes, name.what);
        EXPECT_EQ(probe.codeOf(get(name.text())), 0) << name.what;
        EXPECT_EQ(::access(local.file(name.bytes).constData(), R_OK), 0) << name.what;
    }
    const QByteArray longest(NAME_MAX, 'n');
    remote.addFile(longest, "x");
    EXPECT_EQ(probe.codeOf(get(QString::fromLatin1(longest))), 0);
    EXPECT_EQ(localContent(longest), "x");
}

TEST_F(FtpReceiveTest, AConnectionThatDiesAtAnyByteLeavesNothing)
{
    constexpr int size = 40;
    remote.addFile("a", content(size));
    for (int at = 0; at <= size; ++at) {
        for (const bool all : {false, true}) {
            server.cutDataAt(at, all);
            probe.session().Cancel();
            const bool isWhole = at == size && !all;
            EXPECT_EQ(probe.codeOf(get(QStringLiteral("a"))), isWhole ? 0
                                                              : all   ? TransferError::ConnectionLost
                                                                      : TransferError::ConnectionReset)
                << at;
            EXPECT_EQ(localNames(), isWhole ? QByteArrayList{"a"} : QByteArrayList()) << at;
            ::unlink(local.file("a").constData());
        }
    }
}

TEST_F(FtpReceiveTest, AnAbortedTransferLeavesNothing)
{
    remote.addFile("a", content(100'000));
    server.cutDataAt(50'000, false);
    server.reply("SIZE", "500 Unknown.");
    server.reply(FtpServer::EndOfData, "426 Aborted.");
    EXPECT_EQ(probe.codeOf(get(QStringLiteral("a"))), TransferError::Refused);
    EXPECT_EQ(probe.session().ResponseInfo(), QStringLiteral("426 Aborted."));
    EXPECT_EQ(localNames(), QByteArrayList());
    server.forgetFault(FtpServer::EndOfData);
    server.cutDataAt(-1, false);
    EXPECT_EQ(probe.codeOf(get(QStringLiteral("a"))), 0);
    EXPECT_EQ(server.connections(), 1);
}

TEST_F(FtpReceiveTest, AFileThatGrowsMeanwhileIsReceived)
{
    remote.addFile("a", "12345");
    server.reply("SIZE", "213 3");
    EXPECT_EQ(probe.codeOf(get(QStringLiteral("a"))), 0);
    EXPECT_EQ(localContent("a"), "12345");
}

/// Whose size has its last 32 bits.
TEST_F(FtpReceiveTest, AFileThatShouldHaveMoreThan4GiBIsNotWhole)
{
    remote.addFile("a", "12345");
    server.reply("SIZE", "213 4294967301");
    EXPECT_EQ(probe.codeOf(get(QStringLiteral("a"))), TransferError::ConnectionReset);
    EXPECT_EQ(localNames(), QByteArrayList());
    EXPECT_EQ(probe.codeOf("SIZE \"a\""), 0);
    EXPECT_EQ(probe.response(), QStringLiteral("4294967301"));
}

TEST_F(FtpReceiveTest, TheLastReplyMayComeFirst)
{
    const QByteArray bytes = content(1'000'000);
    remote.addFile("a", bytes);
    server.setReplyBeforeData(true);
    EXPECT_EQ(probe.codeOf(get(QStringLiteral("a"))), 0);
    EXPECT_EQ(localContent("a"), bytes);
}

TEST_F(FtpReceiveTest, WithoutTheLastReplyTheFileIsNotWhole)
{
    remote.addFile("a", "12345");
    server.keepSilent(FtpServer::EndOfData);
    probe.session().setRequestTimeout(1);
    EXPECT_EQ(probe.codeOf(get(QStringLiteral("a"))), TransferError::TimedOut);
    EXPECT_EQ(localNames(), QByteArrayList());
}

/// A large folder takes its time, and a receive looks into the one that it is about to write to.
TEST_F(FtpReceiveTest, WhatKilledReceivesLeftIsRemovedOnceForEachFolder)
{
    local.addFolder("other");
    const auto leave = [this](const QByteArray &folder) {
        local.addFile(folder + ".quill-000000000left.part", "half");
        return local.file(folder + ".quill-000000000left.part");
    };
    const auto isThere = [](const QByteArray &path) { return ::access(path.constData(), F_OK) == 0; };
    const QByteArray left = leave({});
    const QByteArray leftInOther = leave("other/");
    for (const char *name : {"a", "b", "c"})
        remote.addFile(name);
    EXPECT_EQ(probe.codeOf(get(QStringLiteral("a"))), 0);
    EXPECT_FALSE(isThere(left));
    EXPECT_TRUE(isThere(leftInOther));
    leave({});
    EXPECT_EQ(probe.codeOf(get(QStringLiteral("b"))), 0);
    EXPECT_TRUE(isThere(left));
    EXPECT_EQ(probe.codeOf(QStringLiteral("GET \"a\" \"%1/other\\a\"").arg(local.path())), 0);
    EXPECT_FALSE(isThere(leftInOther));
    TransferProbe later(server);
    EXPECT_EQ(later.codeOf(get(QStringLiteral("c"))), 0);
    EXPECT_FALSE(isThere(left));
}

TEST_F(FtpReceiveTest, AFileThatIsNotThereIsRefused)
{
    EXPECT_EQ(probe.codeOf(get(QStringLiteral("a"))), TransferError::Refused);
    EXPECT_EQ(probe.session().ResponseInfo(), QStringLiteral("550 No such file."));
    EXPECT_EQ(localNames(), QByteArrayList());
    EXPECT_EQ(probe.codeOf("DIR"), 0);
}

TEST_F(FtpReceiveTest, ADiskThatFailsAtTheEndIsReportedAndLeavesNothing)
{
    remote.addFile("a", "12345");
    FailingCalls calls;
    calls.fail(FailingCalls::Sync, EIO);
    EXPECT_EQ(probe.codeOf(get(QStringLiteral("a"))), TransferError::DeviceError);
    EXPECT_EQ(localNames(), QByteArrayList());
    EXPECT_EQ(probe.codeOf("DIR"), 0);
}

TEST_F(FtpReceiveTest, AFullDiskIsReportedAndLeavesNothing)
{
    remote.addFile("a", content(5'000'000));
    {
        const FullDisk full(1'000'000);
        EXPECT_EQ(probe.codeOf(get(QStringLiteral("a"))), TransferError::DiskFull);
    }
    EXPECT_EQ(localNames(), QByteArrayList());
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(server.connections(), 1);
}

TEST_F(FtpReceiveTest, SoIsADiskThatFillsUpOrAQuotaThatIsUsedUp)
{
    remote.addFile("a", content(5'000'000));
    for (const int error : {ENOSPC, EDQUOT}) {
        for (const int room : {0, 1'000'000, 4'999'999}) {
            const FailingWrites writes(error, room);
            EXPECT_EQ(probe.codeOf(get(QStringLiteral("a"))), TransferError::DiskFull)
                << error << ' ' << room;
            EXPECT_EQ(localNames(), QByteArrayList());
        }
    }
    EXPECT_EQ(probe.codeOf(get(QStringLiteral("a"))), 0);
    EXPECT_EQ(server.connections(), 1);
}

TEST_F(FtpReceiveTest, ASmallDiskIsLeftAsItWas)
{
    const SmallDisk disk(1 << 20);
    if (!disk.isMounted())
        GTEST_SKIP() << "this user may not mount a file system";
    remote.addFile("large", content(5'000'000));
    remote.addFile("small", content(500'000));
    const QString command = QStringLiteral("GET \"%1\" \"%2\\%1\"");
    EXPECT_EQ(probe.codeOf(command.arg(QStringLiteral("large"), disk.path())), TransferError::DiskFull);
    EXPECT_EQ(QDir(disk.path()).entryList(QDir::Files | QDir::Hidden), QStringList());
    EXPECT_EQ(probe.codeOf(command.arg(QStringLiteral("small"), disk.path())), 0);
    EXPECT_EQ(server.connections(), 1);
}

TEST_F(FtpReceiveTest, AFullDiskIsReportedEvenWhereTheServerFallsSilent)
{
    remote.addFile("a", content(5'000'000));
    server.keepSilent(FtpServer::EndOfData);
    probe.session().setRequestTimeout(1);
    const FullDisk full(1'000'000);
    EXPECT_EQ(probe.codeOf(get(QStringLiteral("a"))), TransferError::DiskFull);
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::ConnectionLost);
}

TEST_F(FtpReceiveTest, TheLocalFolderHasToBeThere)
{
    remote.addFile("a");
    EXPECT_EQ(probe.codeOf("GET \"a\" \"/nowhere/at/all\\a\""), TransferError::PathNotFound);
    EXPECT_EQ(probe.codeOf("GET \"a\" \"a\""), TransferError::PathNotFound);
    local.addFolder("closed");
    const AsUser user(local.path());
    ASSERT_EQ(::chmod(local.file("closed").constData(), 0500), 0);
    EXPECT_EQ(probe.codeOf(QStringLiteral("GET \"a\" \"%1/closed\\a\"").arg(local.path())),
              TransferError::AccessDenied);
    EXPECT_EQ(server.connections(), 0);
}
