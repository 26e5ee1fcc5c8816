#include "FtpServerSession.h"

#include "FtpServer.h"

#include <QDateTime>
#include <cstdio>
#include <linux/sockios.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr qsizetype pieceSize = 65536;

QByteArray done(int result, const QByteArray &text = "250 Done.")
{
    return result == 0 ? text : QByteArray("550 Failed.");
}

std::function<QByteArray()> piecesOf(const QByteArray &bytes)
{
    return [bytes, at = qsizetype(0)]() mutable {
        const QByteArray next = bytes.mid(at, pieceSize);
        at += next.size();
        return next;
    };
}

std::function<QByteArray()> piecesOf(std::shared_ptr<std::FILE> file)
{
    return [file] {
        QByteArray next(pieceSize, Qt::Uninitialized);
        next.truncate(qsizetype(std::fread(next.data(), 1, size_t(next.size()), file.get())));
        return next;
    };
}

std::shared_ptr<std::FILE> open(const QByteArray &path, const char *mode)
{
    std::FILE *file = std::fopen(path.constData(), mode);
    return file ? std::shared_ptr<std::FILE>(file, std::fclose) : nullptr;
}

} // namespace

FtpServerSession::FtpServerSession(FtpServer &server, qintptr socket)
    : m_server(server)
    , m_folder(server.m_root)
{
    m_socket.setSocketDescriptor(socket);
    connect(&m_socket, &QSslSocket::readyRead, this, &FtpServerSession::readLines);
    connect(&m_socket, &QSslSocket::disconnected, this, &QObject::deleteLater);
    atStage(FtpServer::Greeting, [] { return QByteArray("220 Ready."); });
}

void FtpServerSession::release()
{
    if (const auto held = std::exchange(m_held, nullptr))
        held();
    readLines();
}

void FtpServerSession::drop(const QByteArray &text)
{
    if (!text.isEmpty())
        answer(text);
    m_dropped = true;
    m_data.reset();
    m_socket.disconnectFromHost();
}

void FtpServerSession::send(const QByteArray &bytes)
{
    m_socket.write(bytes);
    m_socket.flush();
}

bool FtpServerSession::isDelivered() const
{
    int waiting = 0;
    return m_socket.bytesToWrite() == 0 &&
           ::ioctl(int(m_socket.socketDescriptor()), SIOCOUTQ, &waiting) == 0 && waiting == 0;
}

void FtpServerSession::readLines()
{
    while (!m_dropped && !m_held && m_socket.canReadLine()) {
        QByteArray line = m_socket.readLine();
        line.chop(line.endsWith("\r\n") ? 2 : 1);
        m_server.m_commands.append(line);
        obey(line);
    }
}

void FtpServerSession::obey(const QByteArray &line)
{
    const qsizetype blank = line.indexOf(' ');
    const QByteArray verb = (blank < 0 ? line : line.first(blank)).toUpper();
    const QByteArray argument = blank < 0 ? QByteArray() : line.mid(blank + 1);
    atStage(verb, [this, verb, argument] { return perform(verb, argument); });
}

void FtpServerSession::atStage(const QByteArray &stage, const Effect &effect)
{
    const std::function<void()> step = m_server.m_steps.take(stage);
    if (!step && !m_server.fault(stage).isHeld) {
        act(m_server.fault(stage), effect);
        return;
    }
    m_held = [this, stage, effect] { act(m_server.fault(stage), effect); };
    if (step)
        QMetaObject::invokeMethod(
            &m_server, [self = QPointer(this), stage, step] { runStep(self, stage, step); },
            Qt::QueuedConnection);
}

/// The client may be gone before the step or behind it.
void FtpServerSession::runStep(const QPointer<FtpServerSession> &self, const QByteArray &stage,
                               const std::function<void()> &step)
{
    step();
    if (self && !self->m_server.fault(stage).isHeld)
        self->release();
}

void FtpServerSession::act(const FtpFault &fault, const Effect &effect)
{
    if (fault.dropsBefore)
        drop();
    if (fault.isSilent || fault.dropsBefore)
        return;
    const QByteArray text = fault.reply ? *fault.reply : effect();
    if (!text.isEmpty())
        answer(text);
    if (fault.dropsAfter)
        drop();
}

void FtpServerSession::answer(const QByteArray &text)
{
    m_socket.write(text + "\r\n");
}

QByteArray FtpServerSession::perform(const QByteArray &verb, const QByteArray &argument)
{
    if (verb == "USER") {
        m_user = argument;
        return "331 Password?";
    }
    if (verb == "PASS")
        return logOn(argument);
    if (verb == "AUTH")
        return beginTls();
    if (verb == "PBSZ")
        return "200 Done.";
    if (verb == "PROT") {
        m_protectsData = argument == "P";
        return "200 Done.";
    }
    if (verb == "QUIT") {
        drop("221 Goodbye.");
        return {};
    }
    return m_loggedOn ? performOnFile(verb, argument) : QByteArray("530 Not logged on.");
}

QByteArray FtpServerSession::performOnFile(const QByteArray &verb, const QByteArray &argument)
{
    if (verb == "EPSV" || verb == "PASV")
        return openData(verb);
    if (verb == "RETR")
        return sendFile(argument);
    if (verb == "STOR")
        return receiveFile(argument);
    if (verb == "LIST")
        return sendList(m_folder.list(m_server.m_dotRows));
    if (verb == "MLSD")
        return sendList(m_folder.machineList(m_server.m_dotRows));
    if (verb == "PWD")
        return "257 \"" + m_folder.current().replace('"', "\"\"") + '"';
    if (verb == "CWD" || verb == "CDUP")
        return done(m_folder.enter(verb == "CDUP" ? QByteArray("..") : argument) ? 0 : -1);
    if (verb == "TYPE" || verb == "OPTS") // no option changes what MLSD sends
        return "200 Done.";
    if (verb == "FEAT")
        return "211-Features:\r\n MLST type*;size*;modify*;\r\n UTF8\r\n211 End";
    if (verb == "SIZE")
        return size(argument);
    if (verb == "MDTM")
        return time(argument);
    if (verb == "DELE")
        return done(::unlink(m_folder.path(argument).constData()));
    if (verb == "RMD")
        return done(::rmdir(m_folder.path(argument).constData()));
    if (verb == "MKD")
        return done(::mkdir(m_folder.path(argument).constData(), 0755), "257 Made.");
    if (verb == "RNFR") {
        m_renamed = m_folder.path(argument);
        return done(::access(m_renamed.constData(), F_OK), "350 To what?");
    }
    if (verb == "RNTO")
        return rename(argument);
    return "500 Unknown command.";
}

QByteArray FtpServerSession::logOn(const QByteArray &password)
{
    m_loggedOn = m_user == "anonymous" || (m_user == "tester" && password == "secret");
    return m_loggedOn ? "230 Logged on." : "530 Wrong user or password.";
}

QByteArray FtpServerSession::beginTls()
{
    if (m_server.m_tls.isNull())
        return "500 Unknown command.";
    answer("234 Go on.");
    m_socket.flush();
    m_socket.setSslConfiguration(m_server.m_tls);
    m_socket.startServerEncryption();
    return {};
}

QByteArray FtpServerSession::openData(const QByteArray &verb)
{
    m_data = std::make_unique<FtpServerData>(
        m_server.serverAddress(), m_protectsData ? m_server.m_tls : QSslConfiguration(), m_server.m_cutAt);
    m_data->setEndsAbruptly(m_server.m_endsAbruptly);
    const int port = m_server.m_passivePort ? m_server.m_passivePort : m_data->serverPort();
    if (verb == "EPSV")
        return "229 Entering (|||" + QByteArray::number(port) + "|)";
    return "227 Entering (" + m_server.m_passiveHost + ',' + QByteArray::number(port / 256) + ',' +
           QByteArray::number(port % 256) + ").";
}

QByteArray FtpServerSession::size(const QByteArray &name) const
{
    struct stat state = {};
    if (!m_folder.isFile(name) || ::stat(m_folder.path(name).constData(), &state) != 0)
        return "550 No such file.";
    return "213 " + QByteArray::number(qint64(state.st_size));
}

QByteArray FtpServerSession::time(const QByteArray &name) const
{
    struct stat state = {};
    if (!m_folder.isFile(name) || ::stat(m_folder.path(name).constData(), &state) != 0)
        return "550 No such file.";
    return "213 " + QDateTime::fromSecsSinceEpoch(state.st_mtime, Qt::UTC)
                        .toString(QStringLiteral("yyyyMMddHHmmss"))
                        .toLatin1();
}

QByteArray FtpServerSession::rename(const QByteArray &name)
{
    return done(::rename(std::exchange(m_renamed, {}).constData(), m_folder.path(name).constData()));
}

QByteArray FtpServerSession::sendList(const QByteArray &list)
{
    if (!m_data)
        return "425 No data connection.";
    startData();
    if (!m_server.m_endlessLine.isEmpty())
        m_data->send([lines = m_server.m_endlessLine.repeated(1000)] { return lines; });
    else
        m_data->send(piecesOf(m_server.m_listing.isEmpty() ? list : m_server.m_listing));
    return {};
}

QByteArray FtpServerSession::sendFile(const QByteArray &name)
{
    const auto file = m_folder.isFile(name) ? open(m_folder.path(name), "r") : nullptr;
    if (!file)
        return "550 No such file.";
    if (!m_data)
        return "425 No data connection.";
    startData();
    m_data->send(piecesOf(file));
    return {};
}

QByteArray FtpServerSession::receiveFile(const QByteArray &name)
{
    const auto file = open(m_folder.path(name), "w");
    if (!file)
        return "553 Not allowed.";
    if (!m_data)
        return "425 No data connection.";
    startData();
    m_data->receive([file](const QByteArray &bytes) {
        std::fwrite(bytes.constData(), 1, size_t(bytes.size()), file.get());
        std::fflush(file.get());
    });
    return {};
}

void FtpServerSession::startData()
{
    answer("150 Here it comes.");
    if (m_server.m_replyBeforeData)
        atStage(FtpServer::EndOfData, [] { return QByteArray("226 Done."); });
    connect(m_data.get(), &FtpServerData::finished, this, &FtpServerSession::endData);
}

void FtpServerSession::endData(bool cut)
{
    m_data.release()->deleteLater();
    if (cut && m_server.m_cutsAll)
        drop();
    else if (!m_server.m_replyBeforeData)
        atStage(FtpServer::EndOfData, [] { return QByteArray("226 Done."); });
}
