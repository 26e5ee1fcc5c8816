#pragma once

#include "HttpLimits.h"

#include <QByteArray>
#include <QString>

/// Plain requests to web servers.
namespace HttpRequest {

/// The body of what the server answers at \a address, http: or https:, whatever its status is. Blocks until
/// it is there whole; no event runs meanwhile. The system's proxy is used, and up to ten redirections to
/// addresses of the same two kinds are followed. The body is taken as it comes: no compression is asked for.
///
/// Throws RuntimeError with a number of TransferError: an address that is none (12005); another protocol, be
/// it the address's, that of a redirection or what a reply turns out to have (12006); a host that is not
/// found (12007) or not reached (12029), a reply that ends too early (12030), one that is damaged or leads in
/// a circle (12152), one that passes a limit (12002 for times, 12152 for bytes). Throws 48 where the library
/// that does it is not installed, and 7 where there is too little memory.
QByteArray get(const QString &address, const HttpLimits &limits);

} // namespace HttpRequest
