#pragma once

#include <QTcpServer>

class QSocketNotifier;

/// Takes one data connection at a port of 127.0.0.1 in an FtpServer's place, and records how it has ended.
class DataSink : public QTcpServer
{
    Q_OBJECT

public:
    enum class End { None, Ordinary, Reset };

    DataSink();
    ~DataSink() override;

    bool isConnected() const { return m_socket >= 0; }
    int socket() const { return m_socket; }
    /// Nothing is read before this.
    void readToEnd();
    qint64 bytes() const { return m_bytes; }
    End end() const { return m_end; }

protected:
    void incomingConnection(qintptr socket) override;

private:
    void read();

    int m_socket = -1;
    QSocketNotifier *m_notifier = nullptr;
    qint64 m_bytes = 0;
    End m_end = End::None;
};
