#include "AddressDatabase.h"
#include "ContactRows.h"
#include "RuntimeError.h"
#include "Transaction.h"

#include <QFile>
#include <cstdio>

namespace {

constexpr qint32 contacts = 20;

/// Replaces a contact by one whose fields all have the number of this save, and says so with a dot.
void save(qint32 number, int round)
{
    const QString text = QString::number(round).repeated(3);
    Transaction transaction(AddressConnection, Transaction::Unfinished::Keep);
    ContactRows::remove(number);
    ContactRows::addName(number, {.groupId = 1, .name = text});
    ContactRows::addEMails(number, {text, text});
    ContactRows::addHome(number, {.address = text, .cityId = 1});
    ContactRows::addBusiness(number, {.address = text, .cityId = 1});
    transaction.commit();
    std::putchar('.');
    std::fflush(stdout);
}

} // namespace

/// contact-writer DATABASE: saves contacts for ever.
int main(int argc, char **argv)
{
    if (argc != 2)
        return 2;
    try {
        AddressDatabase::open(QFile::decodeName(argv[1]));
        for (int round = 1;; ++round)
            save(1 + round % contacts, round);
    } catch (const RuntimeError &error) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(error.description()));
        return 1;
    }
}
