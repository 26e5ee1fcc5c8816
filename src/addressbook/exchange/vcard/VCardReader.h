#pragma once

#include "ContactList.h"

/// Reads vCards 3.0 and 4.0 (RFC 2426, RFC 6350), and what programs still write of 2.1. Pictures and other
/// data behind an address are not fetched; what a contact has no place for is left out.
namespace VCardReader {

/// The contacts of \a bytes, in their order. Never an error: damaged lines are skipped, and a card that does
/// not end is read as far as it goes.
ContactList read(const QByteArray &bytes);

} // namespace VCardReader
