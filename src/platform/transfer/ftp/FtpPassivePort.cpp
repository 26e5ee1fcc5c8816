#include "FtpPassivePort.h"

#include <QRegularExpression>

namespace {

constexpr int lowest = 1024;
constexpr int highest = 65535;

std::optional<quint16> checked(int port)
{
    return port >= lowest && port <= highest ? std::optional<quint16>(quint16(port)) : std::nullopt;
}

} // namespace

std::optional<quint16> FtpPassivePort::ofExtended(const QByteArray &reply)
{
    static const QRegularExpression form(QStringLiteral("\\((.)\\1\\1(\\d{1,5})\\1\\)"));
    return checked(form.match(QString::fromLatin1(reply)).captured(2).toInt());
}

std::optional<quint16> FtpPassivePort::ofPlain(const QByteArray &reply)
{
    static const QRegularExpression form(
        QStringLiteral("\\d{1,3},\\d{1,3},\\d{1,3},\\d{1,3},(\\d{1,3}),(\\d{1,3})"));
    const QRegularExpressionMatch match = form.match(QString::fromLatin1(reply));
    return checked(match.captured(1).toInt() * 256 + match.captured(2).toInt());
}
