#pragma once

#include "LineError.h"
#include "LineTraits.h"
#include "PhoneNumber.h"

#include <QObject>

/// A telephone line of any kind, with one call at a time. No operation waits for the line.
class TelephoneLine : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    virtual LineTraits traits() const = 0;

    /// Takes the line for this process. Returns 0 or a LineError, such as NoDevice where what it needs is not
    /// there at present.
    virtual qint32 open() = 0;

    /// Ends a call, without waiting for the line's answer, and gives the line back. No signal follows.
    virtual void close() = 0;

    /// Begins a call on the open line. Where this returns 0, accepted() or refused() follows.
    virtual qint32 dial(const PhoneNumber &number) = 0;

    /// Ends the call; ended() follows, refused() where it was not accepted yet.
    virtual void hangUp() = 0;

    /// Sends \a digits, for which PhoneNumber::areTones() is true, in the connected call.
    virtual void sendTones(const QString &digits) = 0;

Q_SIGNALS:
    /// The call is being dialled; ended() will follow.
    void accepted();
    /// There is no call. \a error is a LineError.
    void refused(qint32 error);
    /// The far end has answered, as far as the line can know.
    void connected();
    /// The call is over, whoever has ended it.
    void ended();
};
