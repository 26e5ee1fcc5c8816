#include "ServerAddress.h"

#include "RuntimeError.h"
#include "TransferError.h"

#include <QRegularExpression>
#include <QUrl>
#include <arpa/inet.h>

namespace {

[[noreturn]] void fail(int code, const QString &text)
{
    throw RuntimeError(code, TransferError::text(code), text);
}

bool isNumericIp6(const QByteArray &host)
{
    in6_addr address;
    return ::inet_pton(AF_INET6, host.constData(), &address) == 1;
}

/// A host's name as it is looked up; empty where \a name can be none.
QByteArray asciiName(const QString &name)
{
    static const QRegularExpression allowed(QStringLiteral("\\A[A-Za-z0-9_]([A-Za-z0-9._-]{0,252})\\z"));
    const QByteArray ascii = QUrl::toAce(name);
    if (!ascii.isEmpty())
        return allowed.match(QString::fromLatin1(ascii)).hasMatch() ? ascii : QByteArray();
    return allowed.match(name).hasMatch() ? name.toLatin1() : QByteArray(); // such as "my_server"
}

} // namespace

ServerAddress ServerAddress::parse(const QString &text)
{
    static const QRegularExpression beginning(QStringLiteral("\\A([A-Za-z][A-Za-z0-9+.-]*)://"));
    static const QRegularExpression form(
        QStringLiteral("\\A(?:\\[([^\\]]+)\\]|([^\\[\\]:/?#@\\s]+))(?::(\\d{1,5}))?/?\\z"));
    const QRegularExpressionMatch prefix = beginning.match(text.trimmed());
    const QString scheme = prefix.captured(1).toLower();
    if (!scheme.isEmpty() && scheme != u"ftp" && scheme != u"ftps")
        fail(TransferError::UnknownScheme, text);
    const QRegularExpressionMatch match = form.match(text.trimmed().mid(prefix.capturedLength()));

    ServerAddress address;
    address.isEncrypted = scheme == u"ftps";
    const QByteArray numeric = match.captured(1).toLatin1();
    address.host = isNumericIp6(numeric) ? numeric : asciiName(match.captured(2));
    const int port = match.captured(3).isEmpty() ? address.port : match.captured(3).toInt();
    if (address.host.isEmpty() || port < 1 || port > 65535)
        fail(TransferError::InvalidUrl, text);
    address.port = quint16(port);
    return address;
}
