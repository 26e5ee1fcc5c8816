#pragma once

#include "ControlConnection.h"
#include "ScratchFolder.h"

#include <QProcess>
#include <QStringList>

/// A telephone on 127.0.0.1 that answers calls by itself. It is a second baresip.
class SipPhone
{
public:
    SipPhone();
    ~SipPhone();
    SipPhone(const SipPhone &) = delete;
    SipPhone &operator=(const SipPhone &) = delete;

    /// "127.0.0.1:port", which serves as the server of an account. The numbers 1234, 12, 99 and 1 reach it.
    QString address() const;

    qint64 processId() const { return m_process.processId(); }

    void hangUp();
    void call(const QString &address);

    bool isInCall() const { return m_isInCall; }
    /// How many calls have ended.
    int endedCalls() const { return m_endedCalls; }
    /// The tones that it has heard.
    QString tones() const { return m_tones; }

private:
    ScratchFolder m_folder;
    quint16 m_port;
    QProcess m_process;
    ControlConnection m_control;
    bool m_isOpen = false;
    bool m_isInCall = false;
    int m_endedCalls = 0;
    QString m_tones;
};
