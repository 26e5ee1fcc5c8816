#include "ContactExport.h"

#include "AddressDatabase.h"
#include "CityName.h"
#include "ContactRows.h"
#include "Recordset.h"
#include "SeedRows.h"
#include "Snapshot.h"
#include "modGetFunctions.h"

#include <QHash>

namespace {

QString withoutPlaceholder(const QString &name)
{
    return name == SeedRows::place ? QString() : name;
}

/// The names behind ids, each looked up once.
class Names
{
public:
    QString group(quint8 id);
    Place place(const QString &address, qint16 cityId, const QString &zipCode);

private:
    struct City
    {
        QString name;
        QString state;
    };

    static City find(qint16 cityId);

    QHash<quint8, QString> m_groups;
    QHash<qint16, City> m_cities;
};

QString Names::group(quint8 id)
{
    if (id == SeedRows::id)
        return {};
    if (!m_groups.contains(id))
        m_groups[id] = GetGroupName(id);
    return m_groups[id];
}

Names::City Names::find(qint16 cityId)
{
    if (cityId == 0) // of a row that is missing
        return {};
    const QString state = GetStateOfCity(cityId);
    const QString name = GetCityName(QString::number(cityId));
    return {withoutPlaceholder(CityName::withoutState(name, state)), withoutPlaceholder(state)};
}

Place Names::place(const QString &address, qint16 cityId, const QString &zipCode)
{
    if (!m_cities.contains(cityId))
        m_cities[cityId] = find(cityId);
    return {address, m_cities[cityId].name, m_cities[cityId].state, zipCode};
}

/// The tables as a whole: a statement for each contact would keep others from writing for many seconds.
struct Tables
{
    const QHash<qint32, NameRow> names = ContactRows::names();
    const QHash<qint32, QStringList> eMails = ContactRows::allEMails();
    const QHash<qint32, HomeRow> homes = ContactRows::homes();
    const QHash<qint32, BusinessRow> businesses = ContactRows::businesses();
};

/// A row that the contact has not is empty: a save may have failed half-way.
Contact contact(qint32 number, const Tables &tables, Names &names)
{
    const NameRow name = tables.names.value(number);
    const HomeRow home = tables.homes.value(number);
    const BusinessRow business = tables.businesses.value(number);
    return {
        .salutation = name.salutation,
        .name = name.name,
        .nickName = name.nickName,
        .group = names.group(name.groupId),
        .comment = name.comment,
        .birthDate = name.birthDate,
        .eMails = tables.eMails.value(number),
        .home = names.place(home.address, home.cityId, home.zipCode),
        .homePhone1 = home.phone1,
        .homePhone2 = home.phone2,
        .homeMobile = home.mobile,
        .work = names.place(business.address, business.cityId, business.zipCode),
        .workPhone1 = business.phone1,
        .workPhone2 = business.phone2,
        .workFax = business.fax,
        .workMobile = business.pager,
        .company = business.company,
        .post = business.post,
        .department = business.department,
    };
}

} // namespace

QList<Contact> ContactExport::all()
{
    const Snapshot snapshot(AddressConnection);
    const Tables tables;
    QList<Contact> contacts;
    Names names;
    Recordset rows;
    for (rows.open(QStringLiteral("select SrNo from Names order by Name, SrNo"), AddressConnection);
         !rows.eof(); rows.moveNext())
        contacts.append(contact(qint32(rows.field(0).number()), tables, names));
    return contacts;
}
