#include "CsvWriter.h"

#include "CsvText.h"
#include "DateText.h"

namespace {

using Formulas = CsvWriter::Formulas;

struct Column
{
    const char *caption;
    QString (*text)(const Contact &);
    bool isPhone = false;
};

template<QString Contact::*text>
QString own(const Contact &contact)
{
    return contact.*text;
}

template<Place Contact::*place, QString Place::*text>
QString ofPlace(const Contact &contact)
{
    return contact.*place.*text;
}

QString birthDate(const Contact &contact)
{
    if (!contact.birthDate)
        return {};
    const bool hasYear = contact.birthDate->year() != Contact::unknownYear;
    return hasYear ? DateText::store(*contact.birthDate)
                   : contact.birthDate->toString(QStringLiteral("'--'MM-dd"));
}

constexpr bool phone = true;
constexpr Column columns[] = {
    {"Salutation", own<&Contact::salutation>},
    {"Name", own<&Contact::name>},
    {"Nick Name", own<&Contact::nickName>},
    {"Group", own<&Contact::group>},
    {"Birth Date", birthDate},
    {"Comments", own<&Contact::comment>},
    {"Home Address", ofPlace<&Contact::home, &Place::address>},
    {"Home City", ofPlace<&Contact::home, &Place::city>},
    {"Home State", ofPlace<&Contact::home, &Place::state>},
    {"Home Postal Code", ofPlace<&Contact::home, &Place::zipCode>},
    {"Home Phone 1", own<&Contact::homePhone1>, phone},
    {"Home Phone 2", own<&Contact::homePhone2>, phone},
    {"Home Mobile", own<&Contact::homeMobile>, phone},
    {"Company", own<&Contact::company>},
    {"Department", own<&Contact::department>},
    {"Position", own<&Contact::post>},
    {"Work Address", ofPlace<&Contact::work, &Place::address>},
    {"Work City", ofPlace<&Contact::work, &Place::city>},
    {"Work State", ofPlace<&Contact::work, &Place::state>},
    {"Work Postal Code", ofPlace<&Contact::work, &Place::zipCode>},
    {"Work Phone 1", own<&Contact::workPhone1>, phone},
    {"Work Phone 2", own<&Contact::workPhone2>, phone},
    {"Work Fax", own<&Contact::workFax>, phone},
    {"Work Mobile", own<&Contact::workMobile>, phone},
};

QString guarded(const QString &text)
{
    const bool isFormula = !text.isEmpty() && QStringView(u"=+-@\t\r").contains(text[0]);
    return isFormula ? u'\'' + text : text;
}

/// The columns of e-mail addresses: as many as the contact with the most addresses needs.
qsizetype eMailColumns(const QList<Contact> &contacts)
{
    qsizetype most = 1;
    for (const Contact &contact : contacts)
        most = qMax(most, contact.eMails.size());
    return most;
}

QString captions(qsizetype eMails)
{
    QStringList row;
    for (const Column &column : columns)
        row.append(QLatin1String(column.caption));
    for (qsizetype number = 1; number <= eMails; ++number)
        row.append(QStringLiteral("E-Mail %1").arg(number));
    return CsvText::written(row);
}

QString rowOf(const Contact &contact, qsizetype eMails, Formulas formulas)
{
    const auto shown = [&](const QString &text) {
        return formulas == Formulas::Guarded ? guarded(text) : text;
    };
    QStringList row;
    for (const Column &column : columns)
        row.append(column.isPhone ? column.text(contact) : shown(column.text(contact)));
    for (qsizetype number = 0; number < eMails; ++number)
        row.append(shown(contact.eMails.value(number)));
    return CsvText::written(row);
}

} // namespace

QByteArray CsvWriter::write(const QList<Contact> &contacts, Formulas formulas)
{
    const qsizetype eMails = eMailColumns(contacts);
    QByteArray bytes = captions(eMails).toUtf8();
    for (const Contact &contact : contacts)
        bytes += rowOf(contact, eMails, formulas).toUtf8();
    return bytes;
}
