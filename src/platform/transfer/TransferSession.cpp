#include "TransferSession.h"

#include "EventGate.h"
#include "FtpList.h"
#include "FtpReceive.h"
#include "FtpRequests.h"
#include "FtpSend.h"
#include "RuntimeError.h"
#include "TransferError.h"
#include "TransferState.h"

#include <QPointer>
#include <utility>

namespace {

bool canBeSent(const QString &text)
{
    return !text.contains(u'\r') && !text.contains(u'\n') && !text.contains(QChar(u'\0'));
}

bool isLastState(int state)
{
    return state == TransferState::Error || state == TransferState::ResponseCompleted;
}

/// For an object whose own code may be calling.
template<class Object>
void deleteSoon(std::unique_ptr<Object> &object)
{
    object->disconnect();
    object.release()->deleteLater();
}

} // namespace

TransferSession::TransferSession()
{
    m_timeout.setSingleShot(true);
    on(&m_timeout, &QTimer::timeout, this, &TransferSession::timeOut);
}

TransferSession::~TransferSession()
{
    cancel();
}

void TransferSession::execute(const QString &command, const LogOn &logOn)
{
    if (m_isExecuting)
        throw RuntimeError(TransferError::InProgress, TransferError::text(TransferError::InProgress));
    ++m_command;
    m_isExecuting = true;
    m_logOn = logOn;
    m_response.clear();
    m_taken = 0;
    m_code = 0;
    m_info.clear();
    try {
        start(command);
    } catch (const TransferFailure &failure) {
        fail(failure);
    }
}

void TransferSession::start(const QString &text)
{
    if (!m_connection && m_logOn.address.host.isEmpty())
        throw TransferFailure(TransferError::ConnectionLost);
    const TransferCommand command = TransferCommand::parse(text);
    if (command.verb == TransferCommand::Close) {
        closeByCommand();
        return;
    }
    if (m_isLost)
        throw TransferFailure(TransferError::ConnectionLost);
    if (!canBeSent(m_logOn.user) || !canBeSent(m_logOn.password))
        throw TransferFailure(TransferError::InvalidParameter);
    makeJob(command);
    waitLonger();
    if (m_connection)
        runJob();
    else
        connectToServer();
}

void TransferSession::closeByCommand()
{
    m_isLost = false;
    if (closeConnection()) {
        post(TransferState::Disconnecting);
        post(TransferState::Disconnected);
    }
    succeed({});
}

void TransferSession::makeJob(const TransferCommand &command)
{
    using Requests = FtpRequests;
    switch (command.verb) {
    case TransferCommand::Dir:
        m_job = std::make_unique<FtpList>();
        break;
    case TransferCommand::Get:
        sweepOnce(command.folder);
        m_job = std::make_unique<FtpReceive>(command.name, command.folder, command.file);
        break;
    case TransferCommand::Put:
        m_job = std::make_unique<FtpSend>(command.folder + '/' + command.file, command.name);
        break;
    case TransferCommand::Size: {
        auto job = std::make_unique<Requests>(QByteArrayList{"SIZE " + command.name},
                                              Requests::Response::LastMessage);
        job->setBinary();
        m_job = std::move(job);
        break;
    }
    case TransferCommand::Cd:
        m_job = std::make_unique<Requests>(QByteArrayList{"CWD " + command.name});
        break;
    case TransferCommand::CdUp:
        m_job = std::make_unique<Requests>(QByteArrayList{"CDUP"});
        break;
    case TransferCommand::Delete:
        m_job = std::make_unique<Requests>(QByteArrayList{"DELE " + command.name});
        break;
    case TransferCommand::RmDir:
        m_job = std::make_unique<Requests>(QByteArrayList{"RMD " + command.name});
        break;
    case TransferCommand::MkDir:
        m_job = std::make_unique<Requests>(QByteArrayList{"MKD " + command.name});
        break;
    case TransferCommand::Rename:
        m_job = std::make_unique<Requests>(QByteArrayList{"RNFR " + command.name, "RNTO " + command.newName});
        break;
    case TransferCommand::Close:
        break; // no job
    }
    on(m_job.get(), &FtpJob::finished, this, &TransferSession::succeed);
    on(m_job.get(), &FtpJob::failed, this, &TransferSession::fail);
    on(m_job.get(), &FtpJob::heard, this, &TransferSession::waitLonger);
}

/// A folder may be large, and the windows wait meanwhile.
void TransferSession::sweepOnce(const QByteArray &folder)
{
    if (!m_swept.contains(folder) && ReceivedFile::sweep(folder))
        m_swept.insert(folder);
}

void TransferSession::connectToServer()
{
    m_connection = std::make_unique<FtpConnection>(m_logOn);
    on(&m_connection->control(), &FtpControl::stateChanged, this, &TransferSession::post);
    on(&m_connection->control(), &FtpControl::heard, this, &TransferSession::waitLonger);
    on(&m_connection->control(), &FtpControl::failed, this, &TransferSession::connectionFailed);
    on(m_connection.get(), &FtpConnection::loggedOn, this, &TransferSession::runJob);
    m_connection->logOn();
}

void TransferSession::runJob()
{
    m_job->run(*m_connection);
}

void TransferSession::cancel()
{
    ++m_command;
    m_isExecuting = false;
    m_isLost = false;
    m_states.clear();
    m_response.clear();
    m_taken = 0;
    m_timeout.stop();
    m_job.reset(); // neither it nor the connection is at work now: handlers are called by deliver() alone
    m_connection.reset();
}

QString TransferSession::takeResponse(int size)
{
    const QString part = m_response.mid(m_taken, qMax(size, 0));
    m_taken += part.size();
    return part;
}

void TransferSession::waitLonger()
{
    if (m_job)
        m_timeout.start(m_logOn.timeout);
}

void TransferSession::timeOut()
{
    const auto hasUnreadInput = [this] {
        return m_connection->control().stream().hasInput() || m_job->hasInput();
    };
    if (!m_job->waitsForServer() || hasUnreadInput() ||
        m_job->hasNewAcknowledgement()) { // another handler may have taken long
        waitLonger();
        return;
    }
    connectionFailed(m_job->failure() ? *m_job->failure() : TransferFailure(TransferError::TimedOut));
}

void TransferSession::connectionFailed(const TransferFailure &failure)
{
    m_isLost = m_connection->isLoggedOn();
    if (closeConnection())
        post(TransferState::Disconnected);
    if (m_job && m_job->waitsForServer())
        fail(m_job->failure() ? *m_job->failure() : failure);
}

void TransferSession::endJob()
{
    m_timeout.stop();
    if (!m_job)
        return;
    m_job->cleanUp();
    deleteSoon(m_job);
}

/// True when the server had greeted.
bool TransferSession::closeConnection()
{
    if (!m_connection)
        return false;
    const bool wasConnected = m_connection->control().isGreeted();
    m_connection->control().disconnect();
    m_connection->control().close();
    deleteSoon(m_connection);
    return wasConnected;
}

void TransferSession::succeed(const QString &response)
{
    endJob();
    m_response = response;
    post(TransferState::ResponseCompleted);
}

void TransferSession::fail(const TransferFailure &failure)
{
    endJob();
    m_code = failure.code;
    m_info = failure.info;
    post(TransferState::Error);
}

void TransferSession::post(int state)
{
    m_states.append(state);
    deliverSoon();
}

void TransferSession::deliverSoon()
{
    QMetaObject::invokeMethod(
        this, [this] { run([this] { deliver(); }); }, Qt::QueuedConnection);
}

/// One state in each event, so that the next one is reported while a handler of this one waits.
void TransferSession::deliver()
{
    if (m_states.isEmpty()) // cancelled meanwhile
        return;
    const int state = m_states.takeFirst();
    const quint64 command = m_command;
    const QPointer<TransferSession> self(this);
    Q_EMIT stateChanged(state);
    if (self && isLastState(state) && m_command == command)
        m_isExecuting = false;
}
