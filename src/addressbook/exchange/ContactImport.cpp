#include "ContactImport.h"

#include "AddressDatabase.h"
#include "ContactFitting.h"
#include "ContactRows.h"
#include "Recordset.h"
#include "ReferenceIds.h"
#include "RuntimeError.h"
#include "Transaction.h"

#include <QSet>

namespace {

constexpr qint32 highestNumber = 32767;

/// The lowest numbers that no contact has, \a count of them.
QList<qint32> freeNumbers(qsizetype count)
{
    QSet<qint64> used;
    Recordset rows;
    for (rows.open(QStringLiteral("select SrNo from Names"), AddressConnection); !rows.eof(); rows.moveNext())
        used.insert(rows.field(0).number());
    QList<qint32> numbers;
    for (qint32 number = 1; number <= highestNumber && numbers.size() < count; ++number) {
        if (!used.contains(number))
            numbers.append(number);
    }
    if (numbers.size() < count)
        throw RuntimeError(ErrorNumber::Overflow,
                           QStringLiteral("The address book has room for %1 more contacts, not for %2")
                               .arg(numbers.size())
                               .arg(count));
    return numbers;
}

void addRows(qint32 number, const Contact &contact, ReferenceIds &ids)
{
    ContactRows::addName(number, {ids.group(contact.group), contact.salutation, contact.name,
                                  contact.nickName, contact.comment, contact.birthDate});
    ContactRows::addEMails(number, contact.eMails);
    ContactRows::addHome(number,
                         {contact.home.address, ids.city(contact.home.city, contact.home.state),
                          contact.home.zipCode, contact.homePhone1, contact.homePhone2, contact.homeMobile});
    ContactRows::addBusiness(number,
                             {contact.work.address, ids.city(contact.work.city, contact.work.state),
                              contact.work.zipCode, contact.workPhone1, contact.workPhone2, contact.workFax,
                              contact.workMobile, contact.company, contact.post, contact.department});
}

} // namespace

QStringList ContactImport::add(const ContactList &list)
{
    QStringList remarks = list.remarks;
    ReferenceIds ids;
    Transaction transaction(AddressConnection);
    const QList<qint32> numbers = freeNumbers(list.contacts.size());
    for (qsizetype i = 0; i < list.contacts.size(); ++i) {
        Contact contact = list.contacts[i];
        for (const QString &remark : ContactFitting::fit(contact))
            remarks.append(QStringLiteral("%1: %2.").arg(contact.name, remark));
        addRows(numbers[i], contact, ids);
    }
    transaction.commit();
    return remarks + ids.remarks();
}
