#pragma once

#include "Contact.h"

#include <QByteArray>
#include <QList>

/// Writes vCards in UTF-8. The same contacts give the same bytes.
namespace VCardWriter {

enum class Version { V3, V4 };

QByteArray write(const QList<Contact> &contacts, Version version);

} // namespace VCardWriter
