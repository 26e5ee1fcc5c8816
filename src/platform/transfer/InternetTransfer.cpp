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

void InternetTransfer::setRemoteHost(const QString &server)
{
    m_server.clear();
    m_logOn.address = {};
    if (server.isEmpty())
        return;
    m_logOn.address = ServerAddress::parse(server);
    m_server = server;
}

void InternetTransfer::setRequestTimeout(int seconds)
{
    if (seconds < 1)
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    m_logOn.timeout = std::chrono::seconds(seconds);
}

void InternetTransfer::Execute(const QString &address, const QString &command)
{
    if (!address.isEmpty())
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    m_session->execute(command, m_logOn);
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
