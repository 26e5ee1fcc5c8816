#include "QtMessages.h"

#include <QStringList>
#include <algorithm>
#include <cstdio>
#include <gtest/gtest.h>

namespace {

QStringList &expected()
{
    static QStringList parts;
    return parts;
}

bool isExpected(const QString &message)
{
    // The offscreen platform's messages about itself.
    return message.contains(QLatin1String("This plugin does not support")) ||
           std::any_of(expected().cbegin(), expected().cend(),
                       [&](const QString &part) { return message.contains(part); });
}

void receive(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(message));
    if ((type == QtWarningMsg || type == QtCriticalMsg) && !isExpected(message))
        ADD_FAILURE() << "Qt warning: " << qUtf8Printable(message);
}

} // namespace

void QtMessages::install()
{
    qInstallMessageHandler(receive);
}

void QtMessages::expect(const QString &part)
{
    expected().append(part);
}

void QtMessages::expectNone()
{
    expected().clear();
}
