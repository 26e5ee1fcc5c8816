#include "TypedAddress.h"

#include <QRegularExpression>

namespace {

/// The scheme that \a text begins with. What has a number behind the colon is a host with its port.
QString schemeOf(const QString &text)
{
    static const QRegularExpression scheme(QStringLiteral("^([A-Za-z][A-Za-z0-9+.-]*):(?!\\d+(?:[/?#]|$))"));
    return scheme.match(text).captured(1).toLower();
}

bool isShown(const QUrl &url)
{
    if (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"))
        return !url.host().isEmpty();
    return url.isLocalFile() || url == QUrl(QStringLiteral("about:blank"));
}

} // namespace

QUrl TypedAddress::url(const QString &text)
{
    const QString typed = text.trimmed();
    if (typed.startsWith(u'/'))
        return QUrl::fromLocalFile(typed);
    const QString address = schemeOf(typed).isEmpty() ? QStringLiteral("http://") + typed : typed;
    const QUrl url(address, QUrl::TolerantMode);
    return url.isValid() && isShown(url) ? url : QUrl();
}
