#include "NetbiosSource.h"

#include "EventGate.h"
#include "LocalNetwork.h"
#include "Program.h"

#include <QNetworkInterface>
#include <utility>

namespace {

constexpr qsizetype mostOutput = 1024 * 1024; // bytes

} // namespace

NetbiosSource::NetbiosSource(QObject *parent)
    : ComputerSource(parent)
{
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.setStandardErrorFile(QProcess::nullDevice());
    on(&m_process, &QProcess::readyReadStandardOutput, this, &NetbiosSource::read);
    on(&m_process, &QProcess::finished, this, [this] {
        read();
        finish(true);
    });
    on(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            finish(false);
    });
}

NetbiosSource::~NetbiosSource()
{
    m_process.disconnect(this);
    m_process.kill();
    m_process.waitForFinished();
}

void NetbiosSource::start()
{
    // It keeps its lines back until it ends, or a computer that has gone silent makes it late.
    const QString lineByLine = Program::find(QStringLiteral("stdbuf"));
    const QString nmblookup = Program::find(QStringLiteral("nmblookup"));
    if (nmblookup.isEmpty() || lineByLine.isEmpty() || LocalNetwork::interfaces().isEmpty())
        finish(false);
    else
        m_process.start(lineByLine,
                        {QStringLiteral("--output=L"), nmblookup, QStringLiteral("-S"), QStringLiteral("*")});
}

void NetbiosSource::read()
{
    const QByteArray bytes = m_process.readAllStandardOutput();
    m_bytes += bytes.size();
    if (m_bytes > mostOutput) {
        m_process.kill();
        return;
    }
    for (const Computer &computer : m_report.read(bytes))
        Q_EMIT found(computer.name, computer.address);
}

void NetbiosSource::finish(bool hasAsked)
{
    if (!std::exchange(m_isFinished, true))
        Q_EMIT finished(hasAsked);
}
