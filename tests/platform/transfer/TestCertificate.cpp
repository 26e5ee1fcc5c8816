#include "TestCertificate.h"

#include "Files.h"

#include <QProcess>
#include <QSslCertificate>
#include <QSslKey>
#include <gtest/gtest.h>

namespace {

void runOpenssl(const QStringList &arguments)
{
    QProcess openssl;
    openssl.start(QStringLiteral("openssl"), arguments);
    EXPECT_TRUE(openssl.waitForFinished());
    EXPECT_EQ(openssl.exitCode(), 0) << openssl.readAllStandardError().constData();
}

} // namespace

TestCertificate::TestCertificate(const QString &name)
{
    runOpenssl(QStringLiteral(
                   "req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 2 -subj /CN=test")
                   .split(u' ') +
               QStringList{QStringLiteral("-addext"), QStringLiteral("subjectAltName=") + name,
                           QStringLiteral("-keyout"), keyFile(), QStringLiteral("-out"), file()});
}

void TestCertificate::expire()
{
    const QString over = file() + QStringLiteral(".over");
    runOpenssl({QStringLiteral("x509"), QStringLiteral("-days"), QStringLiteral("-1"), QStringLiteral("-in"),
                file(), QStringLiteral("-signkey"), keyFile(), QStringLiteral("-out"), over});
    Files::write(file(), Files::read(over));
}

QSslConfiguration TestCertificate::configuration() const
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(QSslCertificate(Files::read(file())));
    configuration.setPrivateKey(QSslKey(Files::read(keyFile()), QSsl::Ec));
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    return configuration;
}
