#include "LoopbackConnection.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <array>
#include <netinet/in.h>
#include <unistd.h>

namespace {

/// The inodes of the sockets that \a process has open.
QSet<QByteArray> socketsOf(qint64 process)
{
    QSet<QByteArray> sockets;
    const QDir descriptors(QStringLiteral("/proc/%1/fd").arg(process));
    for (const QFileInfo &descriptor : descriptors.entryInfoList(QDir::System | QDir::Files)) {
        std::array<char, 64> target = {};
        const QByteArray path = QFile::encodeName(descriptor.filePath());
        if (::readlink(path.constData(), target.data(), target.size() - 1) < 0)
            continue;
        const QByteArray name(target.data());
        if (name.startsWith("socket:["))
            sockets.insert(name.mid(8).chopped(1));
    }
    return sockets;
}

/// An address of this computer as the kernel's table of connections has it.
QByteArray endpoint(quint16 port)
{
    const auto hex = [](quint32 number, int digits) {
        return QByteArray::number(number, 16).toUpper().rightJustified(digits, '0');
    };
    return hex(htonl(INADDR_LOOPBACK), 8) + ':' + hex(port, 4);
}

struct TcpRow
{
    QByteArray local;
    QByteArray remote;
    QByteArray state;
    QByteArray inode; ///< "0" for a connection that nobody has accepted yet, and for one that was let go
};

constexpr const char *listening = "0A";
constexpr const char *established = "01";
constexpr const char *beingEstablished = "03";

QList<TcpRow> connections()
{
    QFile table(QStringLiteral("/proc/net/tcp"));
    if (!table.open(QIODevice::ReadOnly))
        return {};
    QList<TcpRow> rows;
    for (const QByteArray &line : table.readAll().split('\n')) {
        const QByteArrayList fields = line.simplified().split(' ');
        rows.append({fields.value(1), fields.value(2), fields.value(3), fields.value(9)});
    }
    return rows;
}

} // namespace

/// A connection that is not accepted yet belongs to who listens.
bool LoopbackConnection::isServedBy(qint64 process, quint16 port, quint16 ownPort)
{
    const QSet<QByteArray> sockets = socketsOf(process);
    bool isListening = false;
    bool isConnected = false;
    for (const TcpRow &row : connections()) {
        if (row.local != endpoint(port))
            continue;
        const bool isWaiting =
            row.inode == "0" && (row.state == established || row.state == beingEstablished);
        if (row.state == listening) {
            if (!sockets.contains(row.inode))
                return false;
            isListening = true;
        } else if (row.remote == endpoint(ownPort)) {
            isConnected = isWaiting || sockets.contains(row.inode);
        }
    }
    return isListening && isConnected;
}
