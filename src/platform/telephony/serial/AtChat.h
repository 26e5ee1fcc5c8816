#pragma once

#include "AtReader.h"
#include "AtResult.h"
#include "SerialPort.h"

#include <QTimer>

/// The conversation with a modem: one command after the other, each with its answer, and what the modem
/// reports on its own.
class AtChat : public QObject
{
    Q_OBJECT

public:
    explicit AtChat(QObject *parent = nullptr);

    SerialPort &port() { return m_port; }

    /// Sends \a command, which has printable characters alone, with its line end. answered() follows, by \a
    /// time milliseconds with AtResult::None where the modem does not answer; 0 for no limit.
    void send(const QByteArray &command, int time);
    /// Sends a line end alone, which ends a command that the modem is still busy with. What it answers is
    /// no result of the next command.
    void interrupt();
    /// Waits for nothing any more.
    void forget();
    bool isWaiting() const { return m_isWaiting; }

Q_SIGNALS:
    void answered(AtResult result);
    /// A result that answers no command.
    void reported(AtResult result);
    /// An event of the voice mode.
    void eventCame(char event);
    /// The device is gone.
    void lost();

private:
    void take(const QByteArray &bytes);
    void takeResult(AtResult result);
    void finish(AtResult result);

    SerialPort m_port;
    AtReader m_reader;
    QTimer m_limit;
    bool m_isWaiting = false;
};
