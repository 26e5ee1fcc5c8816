#pragma once

#include "RuntimeError.h"

#include <QPluginLoader>

/// A module beside the program that is loaded when it is first needed, so that the start does not pay for it.
/// It stays loaded until the process ends.
class Plugin
{
public:
    /// \a name is the module's file name without its ending: the name of its target,
    /// "platform-webview-engine".
    explicit Plugin(const QString &name);

    bool isInstalled() const;

    /// The module's one object, made by the first call. Throws RuntimeError 48 with the reason as its
    /// description and the file as its source: the module is not installed, cannot be loaded, or has no such
    /// interface. A later call tries again.
    template<class Interface>
    Interface &as();

private:
    QObject &object();
    [[noreturn]] void fail(const QString &reason) const;

    QString m_path;
    QPluginLoader m_loader;
};

template<class Interface>
Interface &Plugin::as()
{
    if (auto *wanted = qobject_cast<Interface *>(&object()))
        return *wanted;
    fail(QStringLiteral("it has another interface"));
}
