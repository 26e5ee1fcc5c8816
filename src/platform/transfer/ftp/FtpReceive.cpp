#include "FtpReceive.h"

#include "BackgroundTask.h"
#include "EventGate.h"
#include "TransferError.h"

#include <QDateTime>

namespace {

constexpr int fileStatus = 213;

/// "20260131120000", perhaps with a fraction of a second behind it.
std::optional<qint64> timeOf(const QByteArray &text)
{
    const QString figures = QString::fromLatin1(text);
    const QDateTime time(QDate::fromString(figures.left(8), QStringLiteral("yyyyMMdd")),
                         QTime::fromString(figures.mid(8, 6), QStringLiteral("HHmmss")), Qt::UTC);
    return time.isValid() ? std::optional<qint64>(time.toSecsSinceEpoch()) : std::nullopt;
}

} // namespace

FtpReceive::FtpReceive(const QByteArray &name, const QByteArray &folder, const QByteArray &file)
    : FtpTransfer(Direction::Receive)
    , m_name(name)
    , m_file(std::in_place, folder, file)
{}

void FtpReceive::cleanUp()
{
    FtpTransfer::cleanUp();
    m_file.reset();
}

void FtpReceive::start()
{
    setType('I', [this] { ask("SIZE " + m_name, [this](const FtpReply &reply) { answeredSize(reply); }); });
}

void FtpReceive::answeredSize(const FtpReply &reply)
{
    if (reply.code == fileStatus)
        m_expected = reply.message().trimmed().toLongLong();
    ask("MDTM " + m_name, [this](const FtpReply &answer) { answeredTime(answer); });
}

void FtpReceive::answeredTime(const FtpReply &reply)
{
    if (reply.code == fileStatus)
        m_modified = timeOf(reply.message().trimmed());
    transfer("RETR " + m_name);
}

void FtpReceive::take(QByteArrayView bytes)
{
    m_file->write(bytes);
    m_received += bytes.size();
}

void FtpReceive::done()
{
    if (m_received < m_expected)
        throw TransferFailure(TransferError::ConnectionReset);
    if (m_modified)
        m_file->setModified(*m_modified);
    m_isSyncing = true;
    auto *task = new BackgroundTask(this); // a slow disk must not hold up the windows
    on(task, &BackgroundTask::finished, this, [this](int error) { guarded([&] { synced(error); }); });
    task->start(m_file->syncing());
}

void FtpReceive::synced(int error)
{
    if (error != 0)
        throw TransferFailure::ofErrno(error);
    m_file->publish();
    auto *task =
        new BackgroundTask(this); // the name has to last too; the file is there whatever becomes of this
    on(task, &BackgroundTask::finished, this, [this] { Q_EMIT finished({}); });
    task->start(m_file->syncingFolder());
}
