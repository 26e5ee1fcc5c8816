#include "Files.h"
#include "FtpServer.h"
#include "InternetTransfer.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "TestCertificate.h"
#include "TransferError.h"
#include "TransferProbe.h"

#include <QDir>
#include <gtest/gtest.h>

namespace {

class EncryptedSessionTest : public testing::Test
{
protected:
    EncryptedSessionTest()
    {
        probe.session().setRemoteHost(QStringLiteral("ftps://") + server.address());
        remote.addFile("a", QByteArray(1'000'000, 'x'));
        local.addFile("b", QByteArray(1'000'000, 'y'));
    }

    /// The server has \a certificate, and the user trusts it.
    void encrypt(const TestCertificate &certificate)
    {
        server.setTls(certificate.configuration());
        probe.session().setTrustedAuthorities(certificate.file());
    }

    ScratchFolder remote;
    ScratchFolder local;
    FtpServer server{remote.path()};
    TransferProbe probe{server};
};

} // namespace

TEST_F(EncryptedSessionTest, EverythingIsEncrypted)
{
    const TestCertificate certificate;
    encrypt(certificate);
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(probe.rows(), QStringList{QStringLiteral("a")});
    EXPECT_EQ(server.commands().first(5),
              (QByteArrayList{"AUTH TLS", "PBSZ 0", "PROT P", "USER tester", "PASS secret"}));
    EXPECT_EQ(probe.codeOf(QStringLiteral("GET \"a\" \"%1\\a\"").arg(local.path())), 0);
    EXPECT_EQ(Files::read(local.path() + QStringLiteral("/a")).size(), 1'000'000);
    EXPECT_EQ(probe.codeOf(QStringLiteral("PUT \"%1\\b\" \"b\"").arg(local.path())), 0);
    EXPECT_EQ(Files::read(remote.path() + QStringLiteral("/b")), QByteArray(1'000'000, 'y'));
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(probe.codeOf("CLOSE"), 0);
    probe.waitFor([this] { return server.openConnections() == 0; });
    EXPECT_EQ(server.commands("QUIT").size(), 1);
}

TEST_F(EncryptedSessionTest, ARefusalToEncryptEndsTheLogOn)
{
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::SecureChannel);
    EXPECT_EQ(server.commands("USER"), QByteArrayList());
    const TestCertificate certificate;
    encrypt(certificate);
    server.reply("PROT", "536 No.");
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::SecureChannel);
    EXPECT_EQ(server.commands("USER"), QByteArrayList());
}

TEST_F(EncryptedSessionTest, ACertificateHasToBeRight)
{
    TestCertificate expired;
    expired.expire();
    encrypt(expired);
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::CertificateDate);
    const TestCertificate other(QStringLiteral("IP:127.0.0.2"));
    encrypt(other);
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::CertificateName);
    const TestCertificate named(QStringLiteral("DNS:127.0.0.1"));
    encrypt(named);
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::CertificateName);
    const TestCertificate good;
    encrypt(good);
    probe.session().setTrustedAuthorities(QString());
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::CertificateAuthority);
    probe.session().setTrustedAuthorities(QStringLiteral("/nowhere/at/all"));
    for (int i = 0; i < 2; ++i) // the second command begins anew
        EXPECT_EQ(probe.codeOf("DIR"), TransferError::CertificateAuthority);
    EXPECT_EQ(server.commands("USER"), QByteArrayList());
    EXPECT_EQ(server.commands("PASS"), QByteArrayList());
}

TEST_F(EncryptedSessionTest, AHostIsKnownByItsName)
{
    const TestCertificate certificate(QStringLiteral("DNS:localhost"));
    encrypt(certificate);
    probe.session().setRemoteHost(QStringLiteral("ftps://localhost:%1/").arg(server.port()));
    EXPECT_EQ(probe.codeOf("DIR"), 0);
}

TEST_F(EncryptedSessionTest, ACertificateOfAnotherHostIsRefused)
{
    probe.session().setRemoteHost(QStringLiteral("ftps://localhost:%1/").arg(server.port()));
    for (const char *name : {"DNS:other.example", "DNS:localhost.example", "DNS:example.localhost",
                             "DNS:local*", "DNS:*.localhost", "IP:127.0.0.1"}) {
        const TestCertificate certificate(QString::fromLatin1(name));
        encrypt(certificate);
        EXPECT_EQ(probe.codeOf("DIR"), TransferError::CertificateName) << name;
    }
    EXPECT_EQ(server.commands("USER"), QByteArrayList());
    EXPECT_EQ(server.commands("PASS"), QByteArrayList());
}

TEST_F(EncryptedSessionTest, WordsThatWereSentBeforeEncryptionAreNotTrusted)
{
    const TestCertificate certificate;
    encrypt(certificate);
    server.reply("AUTH", "234 Go on.\r\n230 You are logged on.");
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::InvalidResponse);
    EXPECT_EQ(server.commands("PBSZ 0"), QByteArrayList());
}

TEST_F(EncryptedSessionTest, AServerThatEncryptsNothingAfterAllIsLeft)
{
    server.reply("AUTH", "234 Go on.");
    server.dropAfter("AUTH");
    EXPECT_EQ(probe.codeOf("DIR"), TransferError::SecureChannel);
}

TEST_F(EncryptedSessionTest, ACutConnectionLeavesNoFile)
{
    const TestCertificate certificate;
    encrypt(certificate);
    for (const bool all : {false, true}) {
        server.cutDataAt(300'000, all);
        EXPECT_NE(probe.codeOf(QStringLiteral("GET \"a\" \"%1\\a\"").arg(local.path())), 0);
        EXPECT_EQ(QDir(local.path()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("b")});
    }
}

TEST_F(EncryptedSessionTest, DataMayEndWithoutTheNoticeOfItsEnd)
{
    const TestCertificate certificate;
    encrypt(certificate);
    server.setEndsAbruptly(true);
    EXPECT_EQ(probe.codeOf("DIR"), 0);
    EXPECT_EQ(probe.rows(), QStringList{QStringLiteral("a")});
}

TEST_F(EncryptedSessionTest, CancelDoesNotWaitForTheServer)
{
    const TestCertificate certificate;
    encrypt(certificate);
    server.hold(FtpServer::EndOfData);
    probe.start("DIR");
    probe.waitFor([this] { return server.isHolding(); });
    probe.session().Cancel();
    EXPECT_FALSE(probe.session().StillExecuting());
    server.release();
    EXPECT_EQ(probe.codeOf("DIR"), 0);
}
