#pragma once

#include <QtGlobal>

/// A port of 127.0.0.1 at which attempts to connect get no answer, as behind a firewall that drops them.
class DeafPort
{
public:
    DeafPort();
    ~DeafPort();
    DeafPort(const DeafPort &) = delete;
    DeafPort &operator=(const DeafPort &) = delete;

    quint16 number() const { return m_number; }

private:
    int m_listener;
    int m_waiting; ///< the one connection that the listener has room for
    quint16 m_number = 0;
};
