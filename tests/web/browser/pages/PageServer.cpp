#include "PageServer.h"

#include <QFile>
#include <QProcess>
#include <QSslKey>
#include <QSslSocket>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

QByteArray answerOf(const QByteArray &status, const QByteArray &headers, const QByteArray &body)
{
    return "HTTP/1.1 " + status + "\r\n" + headers + "Content-Length: " + QByteArray::number(body.size()) +
           "\r\nConnection: close\r\n\r\n" + body;
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << qUtf8Printable(path);
    return file.readAll();
}

/// Gives \a socket a key and a certificate signed by itself.
void certify(QSslSocket &socket)
{
    const QTemporaryDir folder;
    const QString key = folder.filePath(QStringLiteral("key"));
    const QString certificate = folder.filePath(QStringLiteral("certificate"));
    QProcess openssl;
    openssl.start(QStringLiteral("openssl"),
                  QStringLiteral("req -x509 -newkey rsa:2048 -nodes -subj /CN=x -keyout %1 -out %2")
                      .arg(key, certificate)
                      .split(u' '));
    EXPECT_TRUE(openssl.waitForFinished());
    socket.setPrivateKey(QSslKey(contents(key), QSsl::Rsa));
    socket.setLocalCertificate(QSslCertificate(contents(certificate)));
}

} // namespace

PageServer::PageServer(bool isSecure)
    : m_isSecure(isSecure)
{
    EXPECT_TRUE(listen(QHostAddress::LocalHost));
}

QString PageServer::host() const
{
    return QStringLiteral("127.0.0.1:%1").arg(serverPort());
}

QString PageServer::address(const QString &path) const
{
    return QStringLiteral("%1://%2%3")
        .arg(m_isSecure ? QStringLiteral("https") : QStringLiteral("http"), host(), path);
}

void PageServer::page(const QByteArray &path, const QByteArray &body, const QByteArray &headers)
{
    const QByteArray type =
        headers.contains("Content-Type") ? "" : "Content-Type: text/html; charset=utf-8\r\n";
    m_answers[path] = {answerOf("200 OK", type + headers, body)};
}

void PageServer::titled(const QByteArray &path, const QByteArray &title, const QByteArray &body)
{
    page(path, "<!doctype html><title>" + title + "</title><body>" + body);
}

void PageServer::redirect(const QByteArray &path, const QByteArray &target)
{
    m_answers[path] = {answerOf("302 Found", "Location: " + target + "\r\n", {})};
}

void PageServer::raw(const QByteArray &path, const QByteArray &answer)
{
    m_answers[path] = {answer, true};
}

void PageServer::breakOff(const QByteArray &path, const QByteArray &answer)
{
    m_answers[path] = {answer};
}

void PageServer::endless(const QByteArray &path, const QByteArray &body)
{
    m_answers[path] = {"HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n\r\n" + body, true, true};
}

int PageServer::requestsFor(const QByteArray &path) const
{
    return int(m_requests.count("GET " + path));
}

void PageServer::incomingConnection(qintptr descriptor)
{
    QTcpSocket *connection = m_isSecure ? new QSslSocket(this) : new QTcpSocket(this);
    connection->setSocketDescriptor(descriptor);
    connect(connection, &QTcpSocket::readyRead, this, [this, connection] { read(*connection); });
    connect(connection, &QTcpSocket::disconnected, connection, &QObject::deleteLater);
    if (auto *secure = qobject_cast<QSslSocket *>(connection)) {
        certify(*secure);
        secure->startServerEncryption();
    }
}

void PageServer::read(QTcpSocket &connection)
{
    if (!connection.peek(1 << 16).contains("\r\n\r\n"))
        return;
    const QByteArray request = connection.readAll();
    const QByteArrayList words = request.left(request.indexOf('\r')).split(' ');
    m_requests << words.value(0) + ' ' + words.value(1);
    const Answer answer = answerTo(words.value(1));
    if (answer.goesOn)
        connect(&connection, &QTcpSocket::bytesWritten, &connection, [&connection] {
            if (connection.bytesToWrite() == 0)
                connection.write(QByteArray(4096, 'x'));
        });
    connection.write(answer.bytes);
    if (!answer.staysOpen)
        connection.disconnectFromHost();
}

PageServer::Answer PageServer::answerTo(const QByteArray &path) const
{
    return m_answers.value(path,
                           {answerOf("404 Not Found", "Content-Type: text/html\r\n", "<title>none</title>")});
}
