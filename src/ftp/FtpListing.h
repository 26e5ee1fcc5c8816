#pragma once

#include <QStringList>

/// The response to a listing.
namespace FtpListing {

/// The rows of \a response, exactly as received: each ends with a carriage return, line feeds are left out.
/// A row of blanks alone is joined with the next one. What is behind the last carriage return is dropped.
QStringList rows(const QString &response);

} // namespace FtpListing
