#include "Plugin.h"

#include <QCoreApplication>
#include <QFileInfo>

Plugin::Plugin(const QString &name)
    : m_path(QCoreApplication::applicationDirPath() + u'/' + name + QStringLiteral(".so"))
    , m_loader(m_path)
{}

bool Plugin::isInstalled() const
{
    return QFileInfo(m_path).isFile();
}

QObject &Plugin::object()
{
    if (!isInstalled())
        fail(QStringLiteral("it is not installed"));
    if (QObject *instance = m_loader.instance())
        return *instance;
    fail(m_loader.errorString());
}

void Plugin::fail(const QString &reason) const
{
    throw RuntimeError(
        ErrorNumber::ModuleNotLoaded,
        QStringLiteral("The module %1 cannot be used: %2").arg(QFileInfo(m_path).completeBaseName(), reason),
        m_path);
}
