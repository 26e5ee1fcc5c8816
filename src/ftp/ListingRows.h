#pragma once

#include <QStringList>

/// The response to a listing.
namespace ListingRows {

/// The rows of \a response, exactly as received: each ends with a carriage return, line feeds are left out.
/// A row of blanks alone is joined with the next one. What is behind the last carriage return is dropped.
QStringList of(const QString &response);

} // namespace ListingRows
