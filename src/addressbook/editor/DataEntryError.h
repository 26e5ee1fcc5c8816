#pragma once

#include "RuntimeError.h"

namespace DataEntryError {

/// The text of the box when a contact could not be saved because of \a error. Lines end in CR LF.
QString text(const RuntimeError &error);

} // namespace DataEntryError
