#include "AddressDatabase.h"
#include "ContactExport.h"
#include "ContactFile.h"
#include "ContactImport.h"
#include "FileNames.h"
#include "RuntimeError.h"
#include "ShownText.h"

#include <QStringList>
#include <cstdio>
#include <new>

namespace {

constexpr char usage[] = "contacts: usage: contacts import FILE DATABASE, or\n"
                         "          contacts export [--vcard3] [--guard-formulas] DATABASE FILE\n"
                         "FILE ends in .vcf or .csv\n";

/// One line on the standard error.
void complain(const QString &text)
{
    std::fprintf(stderr, "contacts: %s\n", qUtf8Printable(ShownText::line(text)));
}

void importFile(const QString &file, const QString &database)
{
    const ContactList list = ContactFile::load(file);
    AddressDatabase::open(database);
    const QStringList remarks = ContactImport::add(list);
    for (const QString &remark : remarks)
        complain(remark);
    std::printf("%lld contacts added\n", static_cast<long long>(list.contacts.size()));
}

void exportFile(const QString &database, const QString &file, const ContactFile::Options &options)
{
    AddressDatabase::open(database);
    const QList<Contact> contacts = ContactExport::all();
    ContactFile::save(file, contacts, options);
    std::printf("%lld contacts written\n", static_cast<long long>(contacts.size()));
}

/// Takes the options out of \a arguments.
ContactFile::Options takeOptions(QStringList &arguments)
{
    ContactFile::Options options;
    if (arguments.removeAll(QStringLiteral("--vcard3")) > 0)
        options.version = VCardWriter::Version::V3;
    if (arguments.removeAll(QStringLiteral("--guard-formulas")) > 0)
        options.formulas = CsvWriter::Formulas::Guarded;
    return options;
}

bool run(QStringList arguments)
{
    if (arguments.size() == 3 && arguments.at(0) == QLatin1String("import")) {
        importFile(arguments.at(1), arguments.at(2));
        return true;
    }
    const ContactFile::Options options = takeOptions(arguments);
    if (arguments.size() != 3 || arguments.at(0) != QLatin1String("export"))
        return false;
    exportFile(arguments.at(1), arguments.at(2), options);
    return true;
}

} // namespace

/// Brings contacts of other programs into an address database, and takes them out of it. Needs no display and
/// no network. Exit codes: 0 done, 1 a file could not be read or written, or
/// there was not enough memory, 2 wrong usage.
int main(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(FileNames::fromBytes(argv[i]));
    try {
        if (run(arguments))
            return 0;
        std::fputs(usage, stderr);
        return 2;
    } catch (const RuntimeError &error) {
        complain(error.source() + QStringLiteral(": ") + error.description());
    } catch (const std::bad_alloc &) {
        std::fputs("contacts: there is not enough memory\n", stderr);
    }
    return 1;
}
