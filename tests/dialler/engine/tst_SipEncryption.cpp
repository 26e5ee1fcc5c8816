#include "BaresipProcesses.h"
#include "PrintQt.h"
#include "RowName.h"
#include "ScratchFolder.h"
#include "SipTestAccount.h"
#include "TestLine.h"

#include <QProcess>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct SipEncryptionTest : testing::Test
{
    void TearDown() override { BaresipProcesses::waitFor({}); }
};

/// A server that encrypts with a certificate of its own making, and only listens.
struct EncryptedServer
{
    ScratchFolder folder;
    QString certificate = folder.path() + QStringLiteral("/certificate.pem");
    quint16 port = 0;
    QProcess process;

    EncryptedServer()
    {
        const QString key = folder.path() + QStringLiteral("/key.pem");
        const QStringList request{QStringLiteral("req"),
                                  QStringLiteral("-x509"),
                                  QStringLiteral("-newkey"),
                                  QStringLiteral("rsa:2048"),
                                  QStringLiteral("-nodes"),
                                  QStringLiteral("-keyout"),
                                  key,
                                  QStringLiteral("-out"),
                                  certificate,
                                  QStringLiteral("-subj"),
                                  QStringLiteral("/CN=127.0.0.1")};
        QProcess maker;
        maker.setStandardErrorFile(QProcess::nullDevice());
        maker.start(QStringLiteral("openssl"), request);
        EXPECT_TRUE(maker.waitForFinished());
        process.start(QStringLiteral("openssl"), {QStringLiteral("s_server"), QStringLiteral("-cert"),
                                                  certificate, QStringLiteral("-key"), key,
                                                  QStringLiteral("-accept"), QStringLiteral("127.0.0.1:0")});
        QByteArray said;
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return (said += process.readAllStandardOutput()).contains("ACCEPT "); }));
        port = said.mid(said.indexOf("127.0.0.1:", said.indexOf("ACCEPT ")) + 10).simplified().toUShort();
        EXPECT_NE(port, 0) << said.constData();
    }
    ~EncryptedServer()
    {
        process.kill();
        process.waitForFinished();
    }

    LineSettings line(const SipTestAccount &account) const
    {
        LineSettings settings = account.registering();
        settings.server = QStringLiteral("127.0.0.1:") + QString::number(port);
        settings.transport = LineSettings::Transport::Tls;
        return settings;
    }
};

} // namespace

TEST_F(SipEncryptionTest, AServerWithACertificateOfItsOwnIsRefused)
{
    EncryptedServer server;
    const SipTestAccount account(QStringLiteral("unused"));
    TestLine line{{server.line(account)}};
    ASSERT_TRUE(line.call(QStringLiteral("12")));
    line.waitFor("made:Not Registered");
    EXPECT_FALSE(server.process.readAllStandardOutput().contains("REGISTER"));
}

TEST_F(SipEncryptionTest, ACertificateThatTheUserHasNamedIsTrusted)
{
    EncryptedServer server;
    const SipTestAccount account(QStringLiteral("unused"));
    LineSettings settings = server.line(account);
    settings.certificate = server.certificate;
    TestLine line{{settings}};
    ASSERT_TRUE(line.call(QStringLiteral("12")));
    QByteArray said;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return (said += server.process.readAllStandardOutput()).contains("REGISTER sip:127.0.0.1"); },
        20000))
        << said.constData();
}

namespace {

struct SoundRow
{
    const char *name;
    LineSettings::SoundEncryption encryption;
    const char *offer;
    bool hasKeys;
};

struct EncryptedSoundTest : SipEncryptionTest, testing::WithParamInterface<SoundRow>
{};

} // namespace

TEST_P(EncryptedSoundTest, IsOfferedAsTheUserWants)
{
    EncryptedServer server;
    const SipTestAccount account(QStringLiteral("unused"));
    LineSettings settings = server.line(account);
    settings.registers = false;
    settings.certificate = server.certificate;
    settings.soundEncryption = GetParam().encryption;
    TestLine line{{settings}};
    ASSERT_TRUE(line.call(QStringLiteral("12")));
    QByteArray said;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return (said += server.process.readAllStandardOutput()).contains("a=sendrecv"); }, 20000));
    EXPECT_TRUE(said.contains(GetParam().offer)) << said.constData();
    EXPECT_EQ(said.contains("a=crypto:"), GetParam().hasKeys) << said.constData();
}

INSTANTIATE_TEST_SUITE_P(
    Choices, EncryptedSoundTest,
    testing::Values(SoundRow{"None", LineSettings::SoundEncryption::None, " RTP/AVP ", false},
                    SoundRow{"Offered", LineSettings::SoundEncryption::Offered, " RTP/AVP ", true},
                    SoundRow{"Required", LineSettings::SoundEncryption::Required, " RTP/SAVP ", true}),
    RowName());
