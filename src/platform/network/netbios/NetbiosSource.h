#pragma once

#include "ComputerSource.h"
#include "NetbiosReport.h"

#include <QProcess>

/// Computers that answer to NetBIOS. Samba's program nmblookup asks them.
class NetbiosSource : public ComputerSource
{
    Q_OBJECT

public:
    explicit NetbiosSource(QObject *parent = nullptr);
    ~NetbiosSource() override;

    void start() override;

private:
    void read();
    void finish(bool hasAsked);

    QProcess m_process;
    NetbiosReport m_report;
    qsizetype m_bytes = 0;
    bool m_isFinished = false;
};
