#include "DataSink.h"

#include <QHostAddress>
#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

DataSink::DataSink()
{
    EXPECT_TRUE(listen(QHostAddress::LocalHost)) << qPrintable(errorString());
}

DataSink::~DataSink()
{
    delete m_notifier;
    if (m_socket >= 0)
        ::close(m_socket);
}

void DataSink::readToEnd()
{
    m_notifier = new QSocketNotifier(m_socket, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &DataSink::read);
}

void DataSink::incomingConnection(qintptr socket)
{
    m_socket = int(socket);
    Q_EMIT newConnection();
}

void DataSink::read()
{
    std::array<char, 65536> piece;
    const ssize_t got = ::recv(m_socket, piece.data(), piece.size(), MSG_DONTWAIT);
    if (got > 0) {
        m_bytes += got;
        return;
    }
    if (got < 0 && errno != ECONNRESET)
        return;
    m_end = got == 0 ? End::Ordinary : End::Reset;
    m_notifier->setEnabled(false);
}
