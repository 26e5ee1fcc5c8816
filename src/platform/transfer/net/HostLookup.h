#pragma once

#include "SocketAddress.h"

#include <QObject>
#include <memory>

/// Finds the addresses of a host, in a thread of its own: the system's look-up may take long and cannot be
/// ended.
class HostLookup : public QObject
{
    Q_OBJECT

public:
    explicit HostLookup(QObject *parent = nullptr);

    /// \a host is a name or a numeric address.
    void start(const QByteArray &host, quint16 port);

Q_SIGNALS:
    /// In the order in which they should be tried; none where the host is not known.
    void finished(const SocketAddresses &addresses);
};
