#pragma once

#include <QByteArray>
#include <optional>

/// The port that a server opens for data, from its reply. The address in a reply is not used: data always
/// goes to the host of the control connection. Ports below 1024 belong to other services, and none is found
/// then.
namespace FtpPassivePort {

/// From "229 text (|||port|)".
std::optional<quint16> ofExtended(const QByteArray &reply);
/// From "227 text (h,h,h,h,high,low)"; the brackets may be missing.
std::optional<quint16> ofPlain(const QByteArray &reply);

} // namespace FtpPassivePort
