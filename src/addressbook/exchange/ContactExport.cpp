#include "ContactExport.h"

#include "AddressDatabase.h"
#include "CityName.h"
#include "ContactRows.h"
#include "Recordset.h"
#include "SeedRows.h"
#include "Snapshot.h"

#include <QHash>

namespace {

QString withoutPlaceholder(const QString &name)
{
    return name == SeedRows::place ? QString() : name;
}

Recordset opened(const char *statement)
{
    Recordset rows;
    rows.open(QString::fromLatin1(statement), AddressConnection);
    return rows;
}

/// All rows of one state of the database.
struct Tables
{
    Recordset names = opened("select * from Names order by Name, SrNo");
    Recordset eMails = opened("select * from EMails");
    Recordset homes = opened("select * from Home");
    Recordset businesses = opened("select * from Business");
    Recordset groups = opened("select GroupID, GroupName from Groups");
    Recordset cities = opened("select CityID, CityName, StateName from City left join State on "
                              "State.StateID = City.StateID");
};

/// Others can write again as soon as the rows are read; making contacts of them takes many times as long.
Tables readTables()
{
    const Snapshot snapshot(AddressConnection);
    return {};
}

/// The rows of a table under the numbers in their first columns.
template<class Read>
auto byNumber(Recordset &row, Read read)
{
    QHash<qint32, decltype(read(row))> all;
    for (; !row.eof(); row.moveNext())
        all.insert(qint32(row.field(0).number()), read(row));
    return all;
}

QString groupIn(const Recordset &row)
{
    return row.field(0).number() == SeedRows::id ? QString() : row.field(1).text();
}

Place cityIn(const Recordset &row)
{
    const QString state = row.field(2).textOrEmpty();
    return {.city = withoutPlaceholder(CityName::withoutState(row.field(1).text(), state)),
            .state = withoutPlaceholder(state)};
}

QHash<qint32, QStringList> eMailsIn(Recordset &row)
{
    QHash<qint32, QStringList> all;
    for (; !row.eof(); row.moveNext())
        all[qint32(row.field(0).number())].append(row.field(1).textOrEmpty());
    return all;
}

/// Makes contacts of rows. What a contact has no row of is empty: a save may have failed half-way.
class Contacts
{
public:
    explicit Contacts(Tables &tables);

    Contact contact(const Recordset &nameRow) const;

private:
    Place place(const QString &address, qint16 cityId, const QString &zipCode) const;

    QHash<qint32, QStringList> m_eMails;
    QHash<qint32, HomeRow> m_homes;
    QHash<qint32, BusinessRow> m_businesses;
    QHash<qint32, QString> m_groups;
    QHash<qint32, Place> m_cities;
};

Contacts::Contacts(Tables &tables)
    : m_eMails(eMailsIn(tables.eMails))
    , m_homes(byNumber(tables.homes, ContactRows::homeIn))
    , m_businesses(byNumber(tables.businesses, ContactRows::businessIn))
    , m_groups(byNumber(tables.groups, groupIn))
    , m_cities(byNumber(tables.cities, cityIn))
{}

Place Contacts::place(const QString &address, qint16 cityId, const QString &zipCode) const
{
    Place place = m_cities.value(cityId);
    place.address = address;
    place.zipCode = zipCode;
    return place;
}

Contact Contacts::contact(const Recordset &nameRow) const
{
    const auto number = qint32(nameRow.field(u"SrNo").number());
    const NameRow name = ContactRows::nameIn(nameRow);
    const HomeRow home = m_homes.value(number);
    const BusinessRow business = m_businesses.value(number);
    return {
        .salutation = name.salutation,
        .name = name.name,
        .nickName = name.nickName,
        .group = m_groups.value(name.groupId),
        .comment = name.comment,
        .birthDate = name.birthDate,
        .eMails = m_eMails.value(number),
        .home = place(home.address, home.cityId, home.zipCode),
        .homePhone1 = home.phone1,
        .homePhone2 = home.phone2,
        .homeMobile = home.mobile,
        .work = place(business.address, business.cityId, business.zipCode),
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
    Tables tables = readTables();
    const Contacts contacts(tables);
    QList<Contact> all;
    for (Recordset &row = tables.names; !row.eof(); row.moveNext())
        all.append(contacts.contact(row));
    return all;
}
