#include "FileMode.h"

#include <QFile>

namespace {

constexpr mode_t everybody = 0666;
constexpr mode_t user = 0600;

} // namespace

mode_t FileMode::ordinary()
{
    constexpr QByteArrayView label = "Umask:";
    constexpr int octal = 8;
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return user;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (!line.startsWith(label))
            continue;
        bool isNumber = false;
        const mode_t mask = line.sliced(label.size()).trimmed().toUInt(&isNumber, octal);
        return isNumber ? everybody & ~mask : user;
    }
    return user;
}
