#pragma once

#include "Files.h"

/// The bytes of a file of tests/data/contacts, as other programs write them.
inline QByteArray sampleFile(const char *name)
{
    return Files::read(QStringLiteral(QUILL_TEST_DATA "/contacts/") + QLatin1String(name));
}
