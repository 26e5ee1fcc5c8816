#pragma once

#include <QUrl>

/// What a user types as an address.
namespace TypedAddress {

/// The address of a page of the web, of about:blank or of a file; an invalid one where \a text is none of
/// them. A text that begins with "/" is a file, and one without a scheme a page by http.
QUrl url(const QString &text);

} // namespace TypedAddress
