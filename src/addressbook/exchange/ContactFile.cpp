#include "ContactFile.h"

#include "CsvReader.h"
#include "FileNames.h"
#include "Files.h"
#include "RuntimeError.h"
#include "VCardReader.h"

#include <sys/stat.h>

namespace {

constexpr qint64 largest = 256 * 1024 * 1024; // bytes; reading takes several times as much memory

enum class Format { VCard, Csv };

[[noreturn]] void refuse(const QString &path, const QString &reason)
{
    throw RuntimeError(ErrorNumber::InvalidFileFormat, reason, path);
}

Format formatOf(const QString &path)
{
    if (path.endsWith(QLatin1String(".vcf"), Qt::CaseInsensitive))
        return Format::VCard;
    if (path.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive))
        return Format::Csv;
    refuse(path, QStringLiteral("The name has to end in .vcf or .csv"));
}

ContactList read(Format format, const QByteArray &bytes, const QString &path)
{
    try {
        return format == Format::VCard ? VCardReader::read(bytes) : CsvReader::read(bytes);
    } catch (const RuntimeError &error) {
        refuse(path, error.description());
    }
}

} // namespace

ContactList ContactFile::load(const QString &path)
{
    const Format format = formatOf(path);
    struct stat state = {};
    if (::stat(FileNames::toBytes(path).constData(), &state) == 0 && state.st_size > largest)
        throw RuntimeError(ErrorNumber::OutOfMemory, QStringLiteral("The file is too large"), path);
    const ContactList list = read(format, Files::read(path), path);
    if (list.contacts.isEmpty() && list.remarks.isEmpty())
        refuse(path, QStringLiteral("There are no contacts in the file"));
    return list;
}

void ContactFile::save(const QString &path, const QList<Contact> &contacts, const Options &options)
{
    const QByteArray bytes = formatOf(path) == Format::VCard ? VCardWriter::write(contacts, options.version)
                                                             : CsvWriter::write(contacts, options.formulas);
    Files::write(path, bytes);
}
