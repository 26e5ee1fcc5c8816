#pragma once

#include "Connection.h"

/// The one connection through which all windows of the address book work, and every function of this folder.
inline Connection AddressConnection;

/// Opens AddressConnection on "data97.mdb" in the program's folder, and makes the copy of the day. What was
/// open before is closed. Throws RuntimeError as AddressDatabase::open does.
void OpenAddressDatabase();

namespace AddressDatabase {

/// The native path of "data97.mdb" in the program's folder.
QString path();

/// Opens AddressConnection on the file \a path, which is never made. Throws RuntimeError with a description
/// for the user, and leaves the connection closed, where the file is missing, damaged, unreadable or no
/// address database of this version. Where another program has it locked, the error is DataError's own. A
/// file that may only be read is opened.
void open(const QString &path);

} // namespace AddressDatabase
