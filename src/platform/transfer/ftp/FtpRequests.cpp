#include "FtpRequests.h"

#include "FileNames.h"

FtpRequests::FtpRequests(const QByteArrayList &requests, Response response)
    : m_requests(requests)
    , m_response(response)
{}

void FtpRequests::start()
{
    if (m_isBinary)
        setType('I', [this] { askNext(); });
    else
        askNext();
}

void FtpRequests::askNext()
{
    ask(m_requests.takeFirst(), [this](const FtpReply &reply) { answered(reply); });
}

void FtpRequests::answered(const FtpReply &reply)
{
    const bool isLast = m_requests.isEmpty();
    if (!reply.isCompletion() && (isLast || !reply.asksForMore()))
        throw TransferFailure::ofReply(reply);
    if (!isLast)
        askNext();
    else
        Q_EMIT finished(m_response == Response::LastMessage ? FileNames::fromBytes(reply.message().trimmed())
                                                            : QString());
}
