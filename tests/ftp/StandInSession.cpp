#include "StandInSession.h"

#include "EventGate.h"
#include "InternetTransfer.h"
#include "PrintQt.h"
#include "RuntimeError.h"

#include <QPointer>
#include <gtest/gtest.h>

class TransferSession : public StandInSession
{
public:
    QString host;
    QString user;
    QString password;
    QString authorities;
    int timeout = 60;
};

namespace {

StandInSession *newest = nullptr;

} // namespace

StandInSession &StandInSession::current()
{
    return *newest;
}

StandInSession::StandInSession()
{
    newest = this;
    calls.clear();
}

StandInSession::~StandInSession()
{
    if (newest == this)
        newest = nullptr;
}

QStringList StandInSession::commands()
{
    const QString execute = QStringLiteral("Execute ");
    QStringList commands;
    for (const QString &call : calls) {
        if (call.startsWith(execute))
            commands << call.mid(execute.size());
    }
    return commands;
}

void StandInSession::respond(const QString &verb, const QString &response)
{
    answer(verb) = {};
    answer(verb).response = response;
}

void StandInSession::refuse(const QString &verb, int code, const QString &info)
{
    answer(verb) = {};
    answer(verb).code = code;
    answer(verb).info = info;
}

void StandInSession::hold(const QString &verb)
{
    answer(verb).isHeld = true;
}

void StandInSession::release()
{
    for (Answer &answer : m_answers)
        answer.isHeld = false;
    if (m_held)
        std::exchange(m_held, {})();
}

void StandInSession::during(const QString &verb, std::function<void()> step)
{
    answer(verb).step = std::move(step);
}

void StandInSession::throwFor(const QString &verb, int number)
{
    answer(verb).thrown = number;
}

void StandInSession::report(int state)
{
    Q_EMIT m_transfer->StateChanged(state);
}

void StandInSession::execute(const QString &command)
{
    const QString verb = command.section(u' ', 0, 0);
    calls << QStringLiteral("Execute ") + command;
    if (answer(verb).thrown != 0)
        throw RuntimeError(answer(verb).thrown, QStringLiteral("thrown"));
    if (m_executing)
        throw RuntimeError(12110, QStringLiteral("busy"));
    m_executing = true;
    m_code = 0;
    m_info.clear();
    m_response.clear();
    QMetaObject::invokeMethod(
        m_transfer, [this, verb, number = ++m_command] { run(number, verb); }, Qt::QueuedConnection);
}

void StandInSession::run(int command, const QString &verb)
{
    const QPointer<InternetTransfer> alive(m_transfer);
    for (const int state : {InternetTransfer::Requesting, InternetTransfer::RequestSent,
                            InternetTransfer::ReceivingResponse, InternetTransfer::ResponseReceived}) {
        if (m_command == command && m_executing)
            report(state);
    }
    if (const auto step = std::exchange(answer(verb).step, {}))
        step();
    if (!alive || m_command != command || !m_executing)
        return;
    if (answer(verb).isHeld)
        m_held = [this, command, verb] { finish(command, answer(verb)); };
    else
        finish(command, answer(verb));
}

void StandInSession::finish(int command, const Answer &answer)
{
    const QPointer<InternetTransfer> alive(m_transfer);
    m_code = answer.code;
    m_info = answer.info;
    m_response = answer.response;
    report(answer.code == 0 ? InternetTransfer::ResponseCompleted : InternetTransfer::Error);
    if (alive && m_command == command)
        m_executing = false;
}

void StandInSession::cancel()
{
    calls << QStringLiteral("Cancel");
    m_executing = false;
    ++m_command;
    m_response.clear();
    m_held = {};
}

// ---- The session's public functions, in the place of its own

InternetTransfer::InternetTransfer(QObject *parent)
    : QObject(parent)
    , m_session(std::make_unique<TransferSession>())
{
    m_session->m_transfer = this;
}

InternetTransfer::~InternetTransfer() = default;

void InternetTransfer::setProtocol(int protocol)
{
    m_session->calls << QStringLiteral("Protocol %1").arg(protocol);
}

QString InternetTransfer::RemoteHost() const
{
    return m_session->host;
}

void InternetTransfer::setRemoteHost(const QString &server)
{
    m_session->host = server;
    m_session->calls << QStringLiteral("RemoteHost ") + server;
}

QString InternetTransfer::UserName() const
{
    return m_session->user;
}

void InternetTransfer::setUserName(const QString &name)
{
    m_session->user = name;
    m_session->calls << QStringLiteral("UserName ") + name;
}

QString InternetTransfer::Password() const
{
    return m_session->password;
}

void InternetTransfer::setPassword(const QString &password)
{
    m_session->password = password;
    m_session->calls << QStringLiteral("Password ") + password;
}

int InternetTransfer::RequestTimeout() const
{
    return m_session->timeout;
}

void InternetTransfer::setRequestTimeout(int seconds)
{
    m_session->timeout = seconds;
    m_session->calls << QStringLiteral("RequestTimeout %1").arg(seconds);
}

QString InternetTransfer::TrustedAuthorities() const
{
    return m_session->authorities;
}

void InternetTransfer::setTrustedAuthorities(const QString &file)
{
    m_session->authorities = file;
}

void InternetTransfer::Execute(const QString &address, const QString &command)
{
    EXPECT_EQ(address, QString());
    m_session->execute(command);
}

bool InternetTransfer::StillExecuting() const
{
    return m_session->m_executing;
}

void InternetTransfer::Cancel()
{
    m_session->cancel();
}

QString InternetTransfer::GetChunk(int size)
{
    const QString piece = m_session->m_response.left(size);
    m_session->m_response.remove(0, size);
    return piece;
}

int InternetTransfer::ResponseCode() const
{
    return m_session->m_code;
}

QString InternetTransfer::ResponseInfo() const
{
    return m_session->m_info;
}
