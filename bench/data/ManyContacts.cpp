#include "ManyContacts.h"

#include "AddressDatabase.h"
#include "ContactRows.h"
#include "Transaction.h"

QString ManyContacts::word(int seed)
{
    static const QStringList syllables = {
        QStringLiteral("ba"),  QStringLiteral("\u00E9l"), QStringLiteral("mor"),
        QStringLiteral("tis"), QStringLiteral("Ko"),      QStringLiteral("ren"),
        QStringLiteral("Sa"),  QStringLiteral("lin"),     QStringLiteral("dor")};
    QString text;
    for (int i = 0; i < 4; ++i, seed /= 7)
        text += syllables[(seed + i * 5) % syllables.size()];
    return text;
}

void ManyContacts::add()
{
    Transaction transaction(AddressConnection);
    for (int state = 2; state <= 200; ++state)
        AddressConnection.execute(
            QStringLiteral("Insert into State values(%1,'%2')").arg(state).arg(word(state)));
    for (int city = 2; city <= 1000; ++city)
        AddressConnection.execute(
            QStringLiteral("insert into city values(%1,'%2',%3)")
                .arg(QString::number(city), word(city * 31), QString::number(1 + city % 200)));
    for (int number = 1; number <= count; ++number) {
        const QString phone = QStringLiteral("+44 20 %1").arg(number);
        ContactRows::addName(number, {.groupId = 1,
                                      .name = word(number * 17) + u' ' + word(number),
                                      .birthDate = QDate(1930, 1, 1).addDays(number)});
        ContactRows::addEMails(number, {QStringLiteral("%1@example.org").arg(number)});
        ContactRows::addHome(number,
                             {QStringLiteral("%1 Long Road\nOld Town").arg(number), qint16(1 + number % 1000),
                              QStringLiteral("CT%1").arg(number), phone, phone, phone});
        ContactRows::addBusiness(number, {.cityId = qint16(1 + number % 999), .company = word(number * 3)});
    }
    transaction.commit();
}
