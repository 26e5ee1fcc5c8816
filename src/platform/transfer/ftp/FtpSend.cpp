#include "FtpSend.h"

FtpSend::FtpSend(const QByteArray &path, const QByteArray &name)
    : FtpTransfer(Direction::Send)
    , m_file(path)
    , m_name(name)
{}

void FtpSend::start()
{
    setType('I', [this] { transfer("STOR " + m_name); });
}

QByteArray FtpSend::give()
{
    return m_file.read(pieceSize);
}

void FtpSend::done()
{
    Q_EMIT finished({});
}
