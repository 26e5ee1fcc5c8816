#pragma once

#include <QDBusMessage>
#include <QObject>

/// Whether the desktop is set to light or dark windows, read from its settings portal.
class ColorScheme : public QObject
{
    Q_OBJECT

public:
    explicit ColorScheme(QObject *parent);

    /// False where no portal runs or it has no opinion. Waits at most a twentieth of a second.
    bool prefersDark() const;

Q_SIGNALS:
    void changed(bool dark);

private Q_SLOTS:
    void settingChanged(const QDBusMessage &message);
};
