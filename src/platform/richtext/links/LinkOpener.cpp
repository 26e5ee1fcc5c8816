#include "LinkOpener.h"

#include <QDesktopServices>
#include <QUrl>

namespace {

QUrl urlOf(const QString &target)
{
    const bool isMail = target.contains(u'@') && !target.contains(u':') && !target.contains(u'/');
    return isMail ? QUrl(QStringLiteral("mailto:") + target) : QUrl::fromUserInput(target);
}

} // namespace

void LinkOpener::open(const QString &target)
{
    const QUrl url = urlOf(target);
    if (url.isValid())
        QDesktopServices::openUrl(url);
}
