#include "InternetTransfer.h"

#include "RuntimeError.h"
#include "TransferSession.h"

InternetTransfer::InternetTransfer(QObject *parent)
    : QObject(parent)
    , m_session(std::make_unique<TransferSession>())
{
    connect(m_session.get(), &TransferSession::stateChanged, this, &InternetTransfer::StateChanged);
}

InternetTransfer::~InternetTransfer() = default;

void InternetTransfer::setProtocol(int protocol)
{
    if (protocol != icFTP)
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
}

QString InternetTransfer::RemoteHost() const
{
    return m_session->server();
}

void InternetTransfer::setRemoteHost(const QString &server)
{
    m_session->setServer(server);
}

QString InternetTransfer::UserName() const
{
    return m_session->user;
}

void InternetTransfer::setUserName(const QString &name)
{
    m_session->user = name;
}

QString InternetTransfer::Password() const
{
    return m_session->password;
}

void InternetTransfer::setPassword(const QString &password)
{
    m_session->password = password;
}

int InternetTransfer::RequestTimeout() const
{
    return m_session->timeout;
}

void InternetTransfer::setRequestTimeout(int seconds)
{
    if (seconds < 1)
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    m_session->timeout = seconds;
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
    if (!address.isEmpty())
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    m_session->execute(command);
}

bool InternetTransfer::StillExecuting() const
{
    return m_session->isExecuting();
}

void InternetTransfer::Cancel()
{
    m_session->cancel();
}

QString InternetTransfer::GetChunk(int size)
{
    return m_session->takeResponse(size);
}

int InternetTransfer::ResponseCode() const
{
    return m_session->code();
}

QString InternetTransfer::ResponseInfo() const
{
    return m_session->info();
}
