#include "CsvReader.h"
#include "CsvWriter.h"
#include "RuntimeError.h"
#include "VCardReader.h"
#include "VCardWriter.h"

#include <cstdio>
#include <cstdlib>

namespace {

[[noreturn]] void fail(const char *what)
{
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

QList<Contact> read(bool isCsv, const QByteArray &bytes)
{
    try {
        return isCsv ? CsvReader::read(bytes).contacts : VCardReader::read(bytes).contacts;
    } catch (const RuntimeError &) {
        return {};
    }
}

/// What can be read again as it was: names that are not empty, and texts as the readers leave them.
QList<Contact> settled(const QList<Contact> &contacts)
{
    return VCardReader::read(VCardWriter::write(contacts, VCardWriter::Version::V4)).contacts;
}

} // namespace

/// Reads any bytes as vCards or, by the first byte, as comma-separated values. What was read and written once
/// is the same after each further round.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char *>(data) + 1, qsizetype(size) - 1);
    const QList<Contact> once = settled(read(data[0] % 2 == 1, bytes));
    if (settled(once) != once)
        fail("vCards differ");
    if (VCardReader::read(VCardWriter::write(once, VCardWriter::Version::V3)).contacts != once)
        fail("vCards of version 3 differ");
    const QList<Contact> values =
        CsvReader::read(CsvWriter::write(once, CsvWriter::Formulas::AsTheyAre)).contacts;
    if (values.size() != once.size())
        fail("comma-separated values differ");
    return 0;
}
