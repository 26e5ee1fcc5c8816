#include "BaresipProcess.h"

#include "AccountFolder.h"
#include "EventGate.h"
#include "SipAccount.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTimer>
#include <csignal>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr int releaseTime = 3000; // milliseconds
constexpr int leaveTime = 500;    // milliseconds that the end of the suite waits
const QString moduleFolder = QStringLiteral("/usr/lib/baresip/modules");

const QString encryptionFile = QStringLiteral("/openssl.cnf");

QString program()
{
    return QStandardPaths::findExecutable(QStringLiteral("baresip"));
}

/// A port of this computer that nobody uses; 0 where there is none.
quint16 freePort()
{
    QTcpServer server;
    return server.listen(QHostAddress::LocalHost) ? server.serverPort() : 0;
}

bool writePrivate(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner) &&
           file.write(bytes) == bytes.size() && file.flush();
}

/// Runs in the new process. Even one that hangs or is stopped ends with the suite, and a dump of its memory
/// would have the password in it.
void prepareChild(pid_t parent)
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    const rlimit noDump = {0, 0};
    ::setrlimit(RLIMIT_CORE, &noDump);
    if (::getppid() != parent)
        ::_exit(1);
}

/// Runs \a step when \a process has ended, or could not be started.
template<class Step>
void onEnd(QProcess *process, const QObject *context, Step step)
{
    on(process, &QProcess::stateChanged, context, [step](QProcess::ProcessState state) {
        if (state == QProcess::NotRunning)
            step();
    });
}

} // namespace

BaresipProcess::BaresipProcess(QObject *parent)
    : QObject(parent)
{
    EventGate::beforeEnd(this, [this] { release(); });
}

BaresipProcess::~BaresipProcess()
{
    kill();
}

bool BaresipProcess::isInstalled()
{
    return !program().isEmpty();
}

bool BaresipProcess::writeFiles(const SipAccount &account, const QString &folder)
{
    return writePrivate(folder + QStringLiteral("/config"),
                        account.configuration(m_controlPort, moduleFolder)) &&
           writePrivate(folder + QStringLiteral("/accounts"), account.accountLine()) &&
           writePrivate(folder + QStringLiteral("/contacts"), {}) &&
           writePrivate(folder + encryptionFile, SipAccount::encryptionConfiguration());
}

bool BaresipProcess::start(const SipAccount &account)
{
    m_controlPort = freePort();
    m_folder = std::make_unique<AccountFolder>();
    if (m_controlPort == 0 || !m_folder->isValid() || !writeFiles(account, m_folder->path())) {
        removeFiles();
        return false;
    }
    m_process = new QProcess;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("OPENSSL_CONF"), m_folder->path() + encryptionFile);
    m_process->setProcessEnvironment(environment);
    m_process->setProcessChannelMode(QProcess::MergedChannels);
    m_process->setStandardOutputFile(QProcess::nullDevice());
    m_process->setChildProcessModifier([parent = ::getpid()] { prepareChild(parent); });
    EventGate::beforeEnd(m_process, [process = m_process] { process->waitForFinished(leaveTime); });
    onEnd(m_process, this, [this] { Q_EMIT ended(); });
    m_process->start(program(), {QStringLiteral("-f"), m_folder->path()});
    return m_process != nullptr; // who heard of a failed start has let it go
}

qint64 BaresipProcess::processId() const
{
    return m_process ? m_process->processId() : 0;
}

void BaresipProcess::removeFiles()
{
    m_folder.reset();
}

/// From here on the process is nobody's, and its object goes when it has ended.
void BaresipProcess::letGo()
{
    removeFiles();
    QProcess *process = std::exchange(m_process, nullptr);
    process->disconnect(this);
    if (process->state() == QProcess::NotRunning) {
        process->deleteLater();
        return;
    }
    onEnd(process, process, [process] { process->deleteLater(); });
}

void BaresipProcess::release()
{
    if (!m_process)
        return;
    QProcess *process = m_process;
    process->terminate();
    auto *limit = new QTimer(process);
    limit->setSingleShot(true);
    on(limit, &QTimer::timeout, process, [process] { process->kill(); });
    limit->start(releaseTime);
    letGo();
}

void BaresipProcess::kill()
{
    removeFiles();
    if (!m_process)
        return;
    m_process->kill();
    letGo();
}
