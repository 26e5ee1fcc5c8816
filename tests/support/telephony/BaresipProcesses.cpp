#include "BaresipProcesses.h"

#include "SipPhone.h"

#include <QByteArrayList>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QTest>
#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <stdexcept>
#include <unistd.h>

namespace {

constexpr int processPatience = 30000; // milliseconds

/// The kernel's rows about UDP sockets on 127.0.0.1, cut into their fields.
QList<QByteArrayList> udpRows()
{
    QFile table(QStringLiteral("/proc/net/udp"));
    EXPECT_TRUE(table.open(QIODevice::ReadOnly));
    QList<QByteArrayList> rows;
    for (const QByteArray &row : table.readAll().split('\n')) {
        const QByteArrayList fields = row.simplified().split(' ');
        if (fields.value(1).startsWith("0100007F:"))
            rows.append(fields);
    }
    return rows;
}

quint16 portOf(const QByteArrayList &row)
{
    return row.value(1).mid(9).toUShort(nullptr, 16);
}

} // namespace

QList<pid_t> BaresipProcesses::all()
{
    QList<pid_t> found;
    const QDir processes(QStringLiteral("/proc"));
    for (const QString &name : processes.entryList({QStringLiteral("[0-9]*")}, QDir::Dirs)) {
        QFile status(processes.filePath(name + QStringLiteral("/stat")));
        if (!status.open(QIODevice::ReadOnly))
            continue;
        const QByteArray text = status.readAll();
        const QByteArrayList fields = text.mid(text.lastIndexOf(')') + 2).split(' ');
        if (text.contains("(baresip)") && fields.value(1).toInt() == ::getpid() && fields.value(0) != "Z")
            found.append(name.toInt());
    }
    return found;
}

pid_t BaresipProcesses::beside(const SipPhone &phone)
{
    QList<pid_t> others;
    const auto isOne = [&] {
        others = all();
        others.removeAll(pid_t(phone.processId()));
        return others.size() == 1;
    };
    if (!QTest::qWaitFor(isOne, processPatience))
        throw std::runtime_error("there is not one process of baresip"); // nobody may signal process 0
    return others.constFirst();
}

void BaresipProcesses::waitFor(const QList<pid_t> &awaited)
{
    EXPECT_TRUE(QTest::qWaitFor([&] { return all() == awaited; }, processPatience));
}

bool BaresipProcesses::hasUnread(quint16 port)
{
    const QList<QByteArrayList> rows = udpRows();
    return std::any_of(rows.cbegin(), rows.cend(), [port](const QByteArrayList &row) {
        return portOf(row) == port && !row.value(4).endsWith(":00000000");
    });
}

quint16 BaresipProcesses::udpPortOf(pid_t process)
{
    QSet<QByteArray> sockets;
    const QDir descriptors(QStringLiteral("/proc/%1/fd").arg(process));
    for (const QFileInfo &descriptor : descriptors.entryInfoList(QDir::System | QDir::Files)) {
        std::array<char, 64> target = {};
        if (::readlink(descriptor.filePath().toLatin1().constData(), target.data(), target.size() - 1) > 0)
            sockets.insert(QByteArray(target.data()));
    }
    for (const QByteArrayList &row : udpRows()) {
        if (sockets.contains("socket:[" + row.value(9) + ']'))
            return portOf(row);
    }
    return 0;
}
