#pragma once

#include "NetstringReader.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTcpSocket>
#include <QTimer>

class QJsonObject;

/// The connection to the control port of a baresip process: commands and their replies, and the events of its
/// calls. The port has no password, so nothing is sent before it is sure who listens there, and a later
/// connection silently takes the place of an earlier one.
class ControlConnection : public QObject
{
    Q_OBJECT

public:
    explicit ControlConnection(QObject *parent = nullptr);

    /// Connects to \a port of this computer, where \a process may begin to listen only some time later.
    void open(quint16 port, qint64 process);
    void close();

    /// replied() follows with \a token.
    void send(const QString &command, const QString &parameters, const QString &token);

Q_SIGNALS:
    void opened();
    void replied(const QString &token, bool isDone, const QString &text);
    /// \a type is the name that baresip has for the event, \a call its identifier for the call, \a detail
    /// says more.
    void eventCame(const QString &type, bool isIncomingCall, const QString &call, const QString &detail);
    /// There is no connection, or something else than the process at its other end.
    void lost();

private:
    void connectNow();
    void connected();
    void failed();
    void read();
    void take(const QJsonObject &message);
    void giveUp();

    quint16 m_port = 0;
    qint64 m_process = 0;
    QTcpSocket m_socket;
    QTimer m_retry;
    QElapsedTimer m_time;
    bool m_isOpen = false;
    NetstringReader m_reader;
};
