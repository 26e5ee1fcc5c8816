#include "UpdateServer.h"

#include "HttpRequest.h"
#include "Publisher.h"

#include <QUrl>

namespace {

constexpr qint64 megabyte = 1'048'576;
constexpr HttpLimits forText{.bytes = megabyte, .seconds = 2 * 60};
constexpr HttpLimits forFile{.bytes = 512 * megabyte, .seconds = 2 * 60 * 60};

QByteArray fetch(const QString &name, const HttpLimits &limits)
{
    const QString escaped = QString::fromLatin1(QUrl::toPercentEncoding(name));
    return HttpRequest::get(Publisher::updateAddress(QStringLiteral("/quilloffice/version2/") + escaped),
                            limits);
}

} // namespace

QByteArray UpdateServer::fetchText(const QString &name)
{
    return fetch(name, forText);
}

QByteArray UpdateServer::fetchFile(const QString &name)
{
    return fetch(name, forFile);
}
