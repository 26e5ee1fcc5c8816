#include "NetbiosReport.h"

#include <QRegularExpression>

QList<Computer> NetbiosReport::read(const QByteArray &bytes)
{
    static const QRegularExpression heading(QStringLiteral("^Looking up status of ([0-9.]+)$"));
    static const QRegularExpression workstation(QStringLiteral("^\\s+(\\S+)\\s+<00> -\\s+[BPMH]\\s"));
    QList<Computer> computers;
    m_rest += bytes;
    for (qsizetype end = m_rest.indexOf('\n'); end >= 0; end = m_rest.indexOf('\n')) {
        const QString line = QString::fromUtf8(m_rest.first(end));
        m_rest.remove(0, end + 1);
        if (const auto match = heading.match(line); match.hasMatch())
            m_address = match.captured(1);
        else if (const auto row = workstation.match(line); row.hasMatch())
            computers.append({row.captured(1), m_address});
    }
    return computers;
}
