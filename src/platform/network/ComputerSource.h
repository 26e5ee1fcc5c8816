#pragma once

#include <QObject>

/// One way of asking a network for its computers. Deleting a source ends its question.
class ComputerSource : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Asks, once.
    virtual void start() = 0;

Q_SIGNALS:
    /// A computer's name, as it came from the network, and its IPv4 address where it is known.
    void found(const QString &name, const QString &address);
    /// Comes once, also within start(). \a hasAsked is false where this way is not to be had here.
    void finished(bool hasAsked);
};
