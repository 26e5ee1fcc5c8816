#pragma once

#include "PrivateSystemBus.h"

#include <QProcess>
#include <QStringList>

/// A ModemManager on the private bus, which does what a test says. It is a python-dbusmock.
class MockModemManager
{
public:
    enum CallState { Ringing = 2, Active = 4, Terminated = 7 };

    MockModemManager();
    ~MockModemManager();
    MockModemManager(const MockModemManager &) = delete;
    MockModemManager &operator=(const MockModemManager &) = delete;

    void addModem(const QString &identifier, const QString &model, bool hasVoice = true);
    void unplug(const QString &identifier);
    /// The last call has this state now.
    void changeCall(CallState state);
    /// Every call of \a method fails from now on.
    void fail(const QString &method);
    /// The methods that were called, with what counts of their arguments.
    QString seen();

    /// Answers nothing any more.
    void freeze() const;
    void kill();

private:
    QVariant test(const QString &method, const QVariantList &arguments = {});

    PrivateSystemBus m_bus;
    QProcess m_process;
};
