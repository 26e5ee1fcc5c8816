#pragma once

#include "Descriptor.h"

#include <QObject>
#include <QString>
#include <memory>

class QSocketNotifier;

/// A serial port with a modem on it. It belongs to this process alone while it is open. Nothing blocks,
/// neither a modem that takes no bytes nor one that is unplugged.
class SerialPort : public QObject
{
    Q_OBJECT

public:
    explicit SerialPort(QObject *parent = nullptr);
    ~SerialPort() override;

    /// Opens \a path at \a speed bits per second. Returns 0 or an errno value: ENOENT or ENXIO where there is
    /// no such device, EBUSY where another process has it, EACCES without rights, ENOTTY for what is no port,
    /// EINVAL for a speed that ports do not have.
    int open(const QString &path, int speed);
    bool isOpen() const { return m_port.isOpen(); }

    /// False where not all of \a bytes could be handed over.
    bool write(QByteArrayView bytes);

    /// Closes the port, which makes a modem hang up. Bytes that it has not taken are lost.
    void close();
    /// The same a moment later, so that what has been written last still goes out.
    void closeSoon();

    /// Whether ports have this speed.
    static bool isSpeed(int speed);
    /// The speeds, in bits per second.
    static QList<int> speeds();

Q_SIGNALS:
    void received(const QByteArray &bytes);
    /// The device is gone, and the port is closed.
    void lost();

private:
    int configure(int speed);
    void read();
    void dropNotifier();

    Descriptor m_port;
    std::unique_ptr<QSocketNotifier> m_notifier;
};
