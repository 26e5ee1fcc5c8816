#pragma once

#include "RegistryStore.h"

/// The program that shows what the computer is made of. The registry names it.
namespace SystemInformation {

/// The value \a valueName of the key \a keyName as text, in \a result. Returns true when it was read; where
/// the key or the value is missing, and for a text that does not fit a buffer of 1024 characters with its
/// NUL, \a result is empty. A text ends before its first NUL; of other types than text and number nothing is
/// shown.
///
/// Intended: a number is shown byte by byte, the highest first, and a byte below 16 has one digit: 16 is
/// "&h00010" and 258 "&h0012".
bool GetKeyValue(RegistryStore::Root root, const QString &keyName, const QString &valueName, QString &result);

/// Starts it and does not wait. Returns false where the registry names none, or none that can be started.
bool start();

} // namespace SystemInformation
