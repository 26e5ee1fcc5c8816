#include "SerialPort.h"

#include "EventGate.h"
#include "FileNames.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTimer>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <utility>

namespace {

struct Speed
{
    int bits;
    speed_t code;
};

constexpr Speed speedTable[] = {
    {1200, B1200},   {2400, B2400},   {4800, B4800},     {9600, B9600},     {19200, B19200},
    {38400, B38400}, {57600, B57600}, {115200, B115200}, {230400, B230400}, {460800, B460800},
};

constexpr int lastBytesTime = 200; // milliseconds

const Speed *find(int bits)
{
    for (const Speed &speed : speedTable) {
        if (speed.bits == bits)
            return &speed;
    }
    return nullptr;
}

/// Without the flush closing a port waits until the modem has taken all bytes, half a minute at most.
void flushAndClose(Descriptor &port)
{
    ::tcflush(port.get(), TCIOFLUSH);
    ::ioctl(port.get(), TIOCNXCL); // somebody else may have had it open before
    port.close();
}

/// Ends with the application at the latest, so that its end does not wait for the modem either.
class ClosingPort : public QTimer
{
public:
    explicit ClosingPort(Descriptor port)
        : QTimer(QCoreApplication::instance())
        , m_port(std::move(port))
    {}
    ~ClosingPort() override { flushAndClose(m_port); }

private:
    Descriptor m_port;
};

} // namespace

SerialPort::SerialPort(QObject *parent)
    : QObject(parent)
{}

SerialPort::~SerialPort()
{
    close();
}

bool SerialPort::isSpeed(int speed)
{
    return find(speed) != nullptr;
}

QList<int> SerialPort::speeds()
{
    QList<int> bits;
    for (const Speed &speed : speedTable)
        bits.append(speed.bits);
    return bits;
}

int SerialPort::open(const QString &path, int speed)
{
    if (!isSpeed(speed))
        return EINVAL;
    m_port =
        Descriptor(::open(FileNames::toBytes(path).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    if (!m_port.isOpen())
        return errno;
    if (const int error = configure(speed); error != 0) {
        m_port.close();
        return error;
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_port.get(), QSocketNotifier::Read);
    on(m_notifier.get(), &QSocketNotifier::activated, this, &SerialPort::read);
    return 0;
}

int SerialPort::configure(int speed)
{
    const int port = m_port.get();
    termios settings = {};
    if (::tcgetattr(port, &settings) != 0)
        return errno;
    // TIOCEXCL makes the port fail to open for every program but those of root; flock() is for these.
    if (::flock(port, LOCK_EX | LOCK_NB) != 0)
        return errno == EWOULDBLOCK ? EBUSY : errno;
    if (::ioctl(port, TIOCEXCL) != 0)
        return errno;
    ::cfmakeraw(&settings);
    settings.c_cflag |= CLOCAL | CREAD | HUPCL;
    settings.c_cc[VMIN] = 1; // so that 0 bytes are an end and no pause
    settings.c_cc[VTIME] = 0;
    ::cfsetspeed(&settings, find(speed)->code);
    ::tcflush(port, TCIOFLUSH);
    return ::tcsetattr(port, TCSANOW, &settings) == 0 ? 0 : errno;
}

bool SerialPort::write(QByteArrayView bytes)
{
    return ::write(m_port.get(), bytes.data(), size_t(bytes.size())) == bytes.size();
}

void SerialPort::read()
{
    std::array<char, 4096> buffer;
    const ssize_t count = ::read(m_port.get(), buffer.data(), buffer.size());
    if (count > 0) {
        Q_EMIT received(QByteArray(buffer.data(), count));
    } else if (count == 0 || (errno != EAGAIN && errno != EINTR)) {
        close();
        Q_EMIT lost();
    }
}

void SerialPort::close()
{
    if (!isOpen())
        return;
    dropNotifier();
    flushAndClose(m_port);
}

/// It may be the one that is reporting.
void SerialPort::dropNotifier()
{
    m_notifier->setEnabled(false);
    m_notifier.release()->deleteLater();
}

void SerialPort::closeSoon()
{
    if (!isOpen())
        return;
    dropNotifier();
    auto *closing = new ClosingPort(std::move(m_port));
    on(closing, &QTimer::timeout, closing, &QObject::deleteLater);
    closing->start(lastBytesTime);
}
