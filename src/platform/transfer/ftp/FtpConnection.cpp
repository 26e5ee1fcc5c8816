#include "FtpConnection.h"

#include "EventGate.h"
#include "FileNames.h"
#include "TransferError.h"

namespace {

constexpr int wrongLogOn = 530;

[[noreturn]] void failLogOn(const FtpReply &reply, int codeIfWrong)
{
    throw TransferFailure(reply.code == wrongLogOn ? codeIfWrong : TransferError::LogOnFailed);
}

} // namespace

FtpConnection::FtpConnection(const LogOn &logOn)
    : m_logOn(logOn)
{
    if (m_logOn.address.isEncrypted)
        m_tls.emplace(FileNames::toBytes(m_logOn.authorities));
    on(&m_control, &FtpControl::encrypted, this, &FtpConnection::protectData);
}

void FtpConnection::logOn()
{
    m_control.awaitReply([this](const FtpReply &reply) { greeted(reply); });
    m_control.open(m_logOn.address, timeout());
}

bool FtpConnection::canUsePasv() const
{
    return m_control.stream().remote().family() == AF_INET;
}

bool FtpConnection::leaveEpsv(bool isLasting)
{
    if (isLasting && canUsePasv())
        m_usesEpsv = false;
    return canUsePasv();
}

void FtpConnection::greeted(const FtpReply &greeting)
{
    if (!greeting.isCompletion())
        throw TransferFailure::ofReply(greeting);
    if (m_tls)
        m_control.ask("AUTH TLS", [this](const FtpReply &reply) { authorized(reply); });
    else
        sendUser();
}

void FtpConnection::authorized(const FtpReply &reply)
{
    if (!reply.isCompletion()) // going on in the clear would show the password
        throw TransferFailure(TransferError::SecureChannel);
    m_control.encrypt(*m_tls, host());
}

void FtpConnection::protectData()
{
    m_control.ask("PBSZ 0", [this](const FtpReply &) {
        m_control.ask("PROT P", [this](const FtpReply &reply) {
            if (!reply.isCompletion())
                throw TransferFailure(TransferError::SecureChannel);
            sendUser();
        });
    });
}

void FtpConnection::sendUser()
{
    m_control.ask("USER " + FileNames::toBytes(m_logOn.user),
                  [this](const FtpReply &reply) { answeredUser(reply); });
}

void FtpConnection::answeredUser(const FtpReply &reply)
{
    if (reply.isCompletion()) {
        succeed();
        return;
    }
    if (reply.code != 331)
        failLogOn(reply, TransferError::WrongUserName);
    m_control.ask("PASS " + FileNames::toBytes(m_logOn.password),
                  [this](const FtpReply &answer) { answeredPassword(answer); });
}

void FtpConnection::answeredPassword(const FtpReply &reply)
{
    if (!reply.isCompletion())
        failLogOn(reply, TransferError::WrongPassword);
    succeed();
}

void FtpConnection::succeed()
{
    m_isLoggedOn = true;
    m_control.setLoggedOn();
    Q_EMIT loggedOn();
}
