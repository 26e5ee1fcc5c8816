#include "ScriptedModem.h"

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <termios.h>
#include <unistd.h>

ScriptedModem::ScriptedModem()
    : m_modem(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK))
{
    ::grantpt(m_modem);
    ::unlockpt(m_modem);
    m_port = QString::fromLocal8Bit(::ptsname(m_modem));
    m_keepsPort = ::open(::ptsname(m_modem), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (m_keepsPort < 0)
        return;
    termios settings = {};
    ::tcgetattr(m_keepsPort, &settings);
    ::cfmakeraw(&settings); // no echo before somebody else sets it up
    ::tcsetattr(m_keepsPort, TCSANOW, &settings);
    m_notifier = std::make_unique<QSocketNotifier>(m_modem, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, [this] { read(); });
}

ScriptedModem::~ScriptedModem()
{
    unplug();
}

void ScriptedModem::unplug()
{
    m_notifier.reset();
    for (int *descriptor : {&m_modem, &m_keepsPort}) {
        if (*descriptor >= 0)
            ::close(std::exchange(*descriptor, -1));
    }
}

void ScriptedModem::jam()
{
    m_notifier->setEnabled(false);
    ::fcntl(m_keepsPort, F_SETFL, O_NONBLOCK);
    while (::write(m_keepsPort, "x", 1) == 1) {
    }
}

void ScriptedModem::answer(const QByteArray &beginning, const QByteArray &answer)
{
    m_answers.prepend({beginning, answer});
}

void ScriptedModem::send(const QByteArray &bytes) const
{
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t count = ::write(m_modem, bytes.constData() + done, size_t(bytes.size() - done));
        if (count > 0)
            done += count;
        else if (errno != EAGAIN)
            return;
        else
            QCoreApplication::processEvents(); // the reader makes room
    }
}

QByteArray ScriptedModem::dialCommand() const
{
    QByteArrayList dials;
    std::copy_if(m_commands.cbegin(), m_commands.cend(), std::back_inserter(dials),
                 [](const QByteArray &command) { return command.startsWith("ATD"); });
    EXPECT_EQ(dials.size(), 1) << dials.join('|').constData();
    return dials.value(0);
}

QByteArray ScriptedModem::answerTo(const QByteArray &command) const
{
    for (const auto &[beginning, answer] : m_answers) {
        if (command.startsWith(beginning))
            return answer;
    }
    return command.isEmpty() ? QByteArray() : QByteArrayLiteral("\r\nOK\r\n");
}

void ScriptedModem::read()
{
    char buffer[4096];
    const ssize_t count = ::read(m_modem, buffer, sizeof buffer);
    if (count <= 0)
        return;
    m_rest.append(buffer, count);
    for (qsizetype end = m_rest.indexOf('\r'); end >= 0; end = m_rest.indexOf('\r')) {
        const QByteArray command = m_rest.left(end);
        m_rest.remove(0, end + 1);
        m_commands.append(command);
        send(answerTo(command));
    }
}
