#include "FtpList.h"

#include "TransferError.h"

#include <utility>

namespace {

/// Some servers refuse to list a folder that is empty.
bool isEmptyFolder(const FtpReply &refusal)
{
    return (refusal.code == 450 || refusal.code == 550) && refusal.text.toLower().contains("no files");
}

} // namespace

FtpList::FtpList()
    : FtpTransfer(Direction::Receive)
    , m_listing(FtpListing::Format::Machine)
{}

void FtpList::start()
{
    setType('A', [this] { narrowFacts(); });
}

/// Of the facts that MLSD sends only the type is used. Some servers take longer for the others: proftpd a
/// fifth, since it looks up the names of owner and group for each file.
void FtpList::narrowFacts()
{
    if (!connection().knowsMlsd || std::exchange(connection().hasNarrowedFacts, true))
        request();
    else
        ask("OPTS MLST type;", [this](const FtpReply &reply) { answeredFacts(reply); });
}

/// A refusal leaves all facts. The facts that a server names are all that it sends now.
void FtpList::answeredFacts(const FtpReply &reply)
{
    const QByteArray text = reply.text.toLower();
    if (reply.isCompletion() && text.contains("mlst opts") && !text.contains("type"))
        connection().knowsMlsd = false; // folders would look like files
    request();
}

void FtpList::request()
{
    const bool isMachine = connection().knowsMlsd;
    m_time.start();
    m_size = 0;
    m_listing = FtpListing(isMachine ? FtpListing::Format::Machine : FtpListing::Format::Free);
    transfer(isMachine ? "MLSD" : "LIST");
}

void FtpList::take(QByteArrayView bytes)
{
    constexpr qint64 freeTime = 600000; // milliseconds
    m_size += bytes.size();
    if (m_time.hasExpired(freeTime + m_size))
        throw TransferFailure(TransferError::TimedOut);
    m_listing.add(bytes);
}

bool FtpList::recoverFrom(const FtpReply &refusal)
{
    if (connection().knowsMlsd && refusal.isUnknownCommand()) {
        connection().knowsMlsd = false;
        request();
        return true;
    }
    if (isEmptyFolder(refusal)) {
        Q_EMIT finished({});
        return true;
    }
    return false;
}

void FtpList::done()
{
    Q_EMIT finished(m_listing.finish());
}
