#include "FileNames.h"
#include "Files.h"
#include "PrintQt.h"
#include "RealFtpServer.h"
#include "ScratchFolder.h"
#include "TransferError.h"
#include "TransferProbe.h"

#include <cstdio>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString proftpd = QStringLiteral("proftpd");
const QString pureFtpd = QStringLiteral("pure-ftpd");
const QString vsftpd = QStringLiteral("vsftpd");
const QString python = QStringLiteral("pyftpdlib");

QByteArray bytesOf(qsizetype size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    for (qsizetype i = 0; i < size; ++i)
        bytes[i] = char(i * 7 + i / 256 + i / 65536);
    return bytes;
}

/// The content of a file; null where there is none.
QByteArray contentOf(const QByteArray &path)
{
    return ::access(path.constData(), F_OK) == 0 ? Files::read(FileNames::fromBytes(path)) : QByteArray();
}

/// One session with one of the servers.
class RealServersTest : public testing::TestWithParam<QString>
{
protected:
    /// Use START, which skips the test where the server is missing.
    void logOn(const QStringList &options)
    {
        if (!server.start(options))
            return;
        const bool isEncrypted = options.contains(QStringLiteral("--tls"));
        probe.emplace(isEncrypted ? QStringLiteral("ftps://%1/").arg(server.address()) : server.address(),
                      server.user(), server.password());
        if (isEncrypted)
            probe->session().setTrustedAuthorities(server.authority());
    }

    int codeOf(const QString &command) { return probe->codeOf(command); }
    int codeOf(const char *command) { return probe->codeOf(command); }

    int get(const QByteArray &name)
    {
        const QString text = FileNames::fromBytes(name);
        return codeOf(QStringLiteral("GET \"") + text + QStringLiteral("\" \"") + local.path() + u'\\' +
                      text + u'"');
    }
    int put(const QByteArray &name)
    {
        const QString text = FileNames::fromBytes(name);
        return codeOf(QStringLiteral("PUT \"") + local.path() + u'\\' + text + QStringLiteral("\" \"") +
                      text + u'"');
    }

    QByteArray received(const QByteArray &name) const { return contentOf(local.file(name)); }
    QByteArray sent(const QByteArray &name) const { return contentOf(server.root().file(name)); }
    bool isThere(const QByteArray &name) const
    {
        return ::access(server.root().file(name).constData(), F_OK) == 0;
    }

    /// The sorted rows of the current folder, without those of itself and the folder above.
    QStringList list()
    {
        EXPECT_EQ(codeOf("DIR"), 0);
        QStringList rows = probe->rows();
        for (const char *dots : {"./", "../", ".", ".."})
            rows.removeAll(QString::fromLatin1(dots));
        rows.sort();
        return rows;
    }

    /// The server answered with a 5xx reply, which is the text of the error.
    void expectRefusal(const char *command)
    {
        EXPECT_EQ(codeOf(command), TransferError::Refused) << command;
        EXPECT_TRUE(probe->session().ResponseInfo().startsWith(u'5'))
            << probe->session().ResponseInfo().toStdString();
    }

    qsizetype logOns() const { return probe->states().count(InternetTransfer::ResolvingHost); }

    RealFtpServer server{GetParam()};
    ScratchFolder local;
    std::optional<TransferProbe> probe;
};

class EncryptingServersTest : public RealServersTest
{};

class QuotaServersTest : public RealServersTest
{};

class IdleServersTest : public RealServersTest
{};

#define START(...)                                                                                           \
    logOn(QStringList{__VA_ARGS__});                                                                         \
    if (!probe)                                                                                              \
    GTEST_SKIP() << server.reason().toStdString()

const auto nameOfServer = [](const auto &info) { return QString(info.param).remove(u'-').toStdString(); };

} // namespace

TEST_P(RealServersTest, EveryCommandOverOneConnection)
{
    server.root().addFile("a.txt", "hello\n");
    server.root().addFolder("sub");
    server.root().addFile("sub/inner.txt", "inner");
    START();

    EXPECT_EQ(list(), (QStringList{QStringLiteral("a.txt"), QStringLiteral("sub/")}));
    EXPECT_EQ(codeOf("SIZE \"a.txt\""), 0);
    EXPECT_EQ(probe->response(), QStringLiteral("6"));
    EXPECT_EQ(get("a.txt"), 0);
    EXPECT_EQ(received("a.txt"), "hello\n");
    EXPECT_EQ(get("a.txt"), TransferError::FileExists);

    EXPECT_EQ(codeOf("CD \"sub/\""), 0);
    EXPECT_EQ(list(), QStringList{QStringLiteral("inner.txt")});
    expectRefusal("SIZE \"a.txt\"");
    local.addFile("sent", "first");
    EXPECT_EQ(put("sent"), 0);
    EXPECT_EQ(sent("sub/sent"), "first");
    local.addFile("sent", "2nd");
    EXPECT_EQ(put("sent"), 0);
    EXPECT_EQ(sent("sub/sent"), "2nd");
    EXPECT_EQ(codeOf("RENAME \"sent\" \"renamed\""), 0);
    EXPECT_EQ(list(), (QStringList{QStringLiteral("inner.txt"), QStringLiteral("renamed")}));
    EXPECT_EQ(codeOf("DELETE \"renamed\""), 0);
    EXPECT_FALSE(isThere("sub/renamed"));
    EXPECT_EQ(codeOf("CDUP"), 0);

    EXPECT_EQ(codeOf("MKDIR \"made\""), 0);
    expectRefusal("MKDIR \"made\"");
    EXPECT_EQ(codeOf("RENAME \"made/\" \"made anew\""), 0);
    EXPECT_EQ(list(),
              (QStringList{QStringLiteral("a.txt"), QStringLiteral("made anew/"), QStringLiteral("sub/")}));
    EXPECT_EQ(codeOf("CD \"made anew/\""), 0);
    EXPECT_EQ(list(), QStringList());
    EXPECT_EQ(codeOf("CD \"../\""), 0);
    EXPECT_EQ(codeOf("RMDIR \"made anew/\""), 0);
    EXPECT_FALSE(isThere("made anew"));

    for (const char *command : {"CD \"missing\"", "DELETE \"missing\"", "RMDIR \"missing\"", "RMDIR \"sub/\"",
                                "SIZE \"missing\"", "RENAME \"missing\" \"other\""})
        expectRefusal(command);
    EXPECT_EQ(get("missing"), TransferError::Refused);
    EXPECT_NE(::access(local.file("missing").constData(), F_OK), 0);
    EXPECT_EQ(put("missing"), TransferError::FileNotFound);
    EXPECT_EQ(codeOf("MKDIR \"two\r\nDELE a.txt\""), TransferError::InvalidParameter);
    EXPECT_EQ(list(), (QStringList{QStringLiteral("a.txt"), QStringLiteral("sub/")}));
    EXPECT_EQ(logOns(), 1);
    EXPECT_EQ(codeOf("CLOSE"), 0);
}

TEST_P(RealServersTest, NamesKeepTheirBytes)
{
    START();
    QByteArrayList names = {"with blank", "quo\"te", "a\" \"b",       "ha#sh",
                            "x;type=a",   "%41",     "uml\xc3\xa4ut", "a -> b"};
    if (GetParam() != python) // which replaces what is not UTF-8
        names += {"caf\xe9", "\xff", "x\xffy", "z\xff"};
    if (GetParam() == vsftpd || GetParam() == python) // the others have rules of their own for these
        names += {"-rf", "a\\b", "[x]"};
    for (const QByteArray &name : names) {
        local.addFile(name, name);
        EXPECT_EQ(put(name), 0) << name.constData();
        EXPECT_EQ(sent(name), name);
        EXPECT_EQ(list(), QStringList{FileNames::fromBytes(name)});
        const QString text = FileNames::fromBytes(name);
        EXPECT_EQ(codeOf(QStringLiteral("SIZE \"") + text + u'"'), 0) << name.constData();
        EXPECT_EQ(probe->response(), QString::number(name.size()));
        ASSERT_EQ(std::remove(local.file(name).constData()), 0);
        EXPECT_EQ(get(name), 0) << name.constData();
        EXPECT_EQ(received(name), name);
        EXPECT_EQ(codeOf(QStringLiteral("DELETE \"") + text + u'"'), 0) << name.constData();
        EXPECT_FALSE(isThere(name));
        EXPECT_EQ(codeOf(QStringLiteral("MKDIR \"") + text + u'"'), 0) << name.constData();
        EXPECT_EQ(list(), QStringList{text + u'/'});
        EXPECT_EQ(codeOf(QStringLiteral("CD \"") + text + QStringLiteral("/\"")), 0) << name.constData();
        EXPECT_EQ(codeOf("CDUP"), 0);
        EXPECT_EQ(codeOf(QStringLiteral("RMDIR \"") + text + QStringLiteral("/\"")), 0) << name.constData();
        EXPECT_FALSE(isThere(name));
    }
    EXPECT_EQ(logOns(), 1);
}

TEST_P(RealServersTest, LargeFilesArriveByteByByte)
{
    const QByteArray bytes = bytesOf(2'000'003);
    server.root().addFile("down", bytes);
    START();
    EXPECT_EQ(get("down"), 0);
    EXPECT_TRUE(received("down") == bytes);
    local.addFile("up", bytes);
    EXPECT_EQ(put("up"), 0);
    EXPECT_TRUE(sent("up") == bytes);
    local.addFile("empty");
    EXPECT_EQ(put("empty"), 0);
    EXPECT_EQ(codeOf("SIZE \"empty\""), 0);
    EXPECT_EQ(probe->response(), QStringLiteral("0"));
}

TEST_P(RealServersTest, TheTimeOfChangeIsKept)
{
    constexpr time_t changed = 1'000'000'007;
    server.root().addFile("old", "x");
    const timespec times[] = {{changed, 0}, {changed, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, server.root().file("old").constData(), times, 0), 0);
    START();
    EXPECT_EQ(get("old"), 0);
    struct stat state = {};
    ASSERT_EQ(::stat(local.file("old").constData(), &state), 0);
    EXPECT_EQ(state.st_mtime, changed);
}

TEST_P(RealServersTest, ThousandsOfFilesAreListed)
{
    constexpr int count = 5000;
    QStringList names;
    for (int i = 0; i < count; ++i) {
        names.append(QStringLiteral("file %1").arg(i, 4, 10, QLatin1Char('0')));
        server.root().addFile(names.constLast().toUtf8());
    }
    START();
    EXPECT_EQ(list(), names);
    EXPECT_EQ(list(), names);
}

TEST_P(RealServersTest, AfterTheServerHasStoppedNothingHappensElsewhere)
{
    server.root().addFile("same", "in the root");
    server.root().addFolder("sub");
    server.root().addFile("sub/same", "in the folder");
    START();
    EXPECT_EQ(codeOf("CD \"sub\""), 0);
    server.endSessions();
    EXPECT_EQ(codeOf("DELETE \"same\""), TransferError::ConnectionLost);
    EXPECT_EQ(codeOf("DELETE \"same\""), TransferError::ConnectionLost);
    EXPECT_TRUE(isThere("same"));
    EXPECT_TRUE(isThere("sub/same"));
    EXPECT_EQ(logOns(), 1);
    probe->session().Cancel();
    EXPECT_EQ(list(), (QStringList{QStringLiteral("same"), QStringLiteral("sub/")}));
    EXPECT_EQ(logOns(), 2);
}

TEST_P(RealServersTest, AWrongPasswordIsReported)
{
    START();
    if (GetParam() == vsftpd)
        probe->session().setUserName(QStringLiteral("nobody")); // only its anonymous user exists
    probe->session().setPassword(QStringLiteral("wrong"));
    const int code = codeOf("DIR");
    EXPECT_EQ(code, GetParam() == vsftpd ? TransferError::WrongUserName : TransferError::WrongPassword);
}

TEST_P(IdleServersTest, ASessionThatTheServerEndedIsLost)
{
    server.root().addFile("same", "x");
    START(QStringLiteral("--idle"), QStringLiteral("1"));
    EXPECT_EQ(codeOf("DIR"), 0);
    probe->waitFor([this] { return probe->states().contains(InternetTransfer::Disconnected); });
    EXPECT_EQ(codeOf("DELETE \"same\""), TransferError::ConnectionLost);
    EXPECT_TRUE(isThere("same"));
    EXPECT_EQ(logOns(), 1);
}

TEST_P(QuotaServersTest, AFullQuotaIsReported)
{
    START(QStringLiteral("--quota"), QStringLiteral("1"));
    local.addFile("big", bytesOf(3'000'000));
    EXPECT_EQ(put("big"), TransferError::Refused);
    EXPECT_TRUE(probe->session().ResponseInfo().startsWith(QStringLiteral("552")))
        << probe->session().ResponseInfo().toStdString();
    EXPECT_EQ(codeOf("DIR"), 0);
    EXPECT_EQ(logOns(), 1);
}

TEST_P(EncryptingServersTest, ASendAndAReceiveReuseTheSession)
{
    const QByteArray bytes = bytesOf(2'000'003);
    local.addFile("up", bytes);
    START(QStringLiteral("--tls"));
    EXPECT_EQ(list(), QStringList());
    EXPECT_EQ(put("up"), 0);
    EXPECT_TRUE(sent("up") == bytes);
    EXPECT_EQ(list(), QStringList{QStringLiteral("up")});
    ASSERT_EQ(std::remove(local.file("up").constData()), 0);
    EXPECT_EQ(get("up"), 0);
    EXPECT_TRUE(received("up") == bytes);
    local.addFile("empty");
    EXPECT_EQ(put("empty"), 0);
    EXPECT_EQ(logOns(), 1);
}

TEST_P(EncryptingServersTest, AnUnknownAuthorityIsRefused)
{
    START(QStringLiteral("--tls"));
    probe->session().setTrustedAuthorities({});
    EXPECT_EQ(codeOf("DIR"), TransferError::CertificateAuthority);
}

INSTANTIATE_TEST_SUITE_P(Servers, RealServersTest, testing::Values(proftpd, pureFtpd, vsftpd, python),
                         nameOfServer);
INSTANTIATE_TEST_SUITE_P(Servers, EncryptingServersTest, testing::Values(proftpd, pureFtpd, vsftpd),
                         nameOfServer);
INSTANTIATE_TEST_SUITE_P(Servers, QuotaServersTest, testing::Values(pureFtpd), nameOfServer);
INSTANTIATE_TEST_SUITE_P(Servers, IdleServersTest, testing::Values(proftpd, vsftpd, python), nameOfServer);
