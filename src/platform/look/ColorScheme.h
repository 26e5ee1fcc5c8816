#pragma once

#include <QDBusMessage>
#include <QObject>

/// Whether the desktop is set to light or dark windows, read from its settings portal.
class ColorScheme : public QObject
{
    Q_OBJECT

public:
    explicit ColorScheme(QObject *parent);

    /// False where there is no portal or it has no opinion. Waits at most a twentieth of a second; a portal
    /// that has to be started first answers later, by changed().
    bool prefersDark();

Q_SIGNALS:
    void changed(bool dark);

private:
    void askAgain();

private Q_SLOTS:
    void settingChanged(const QDBusMessage &message);
};
