#include "ReferenceNames.h"

#include "AddressDatabase.h"
#include "Recordset.h"

namespace {

QStringList namesOf(const QString &statement)
{
    Recordset rows;
    QStringList names;
    for (rows.open(statement, AddressConnection); !rows.eof(); rows.moveNext())
        names.append(rows.field(0).text());
    return names;
}

} // namespace

QStringList ReferenceNames::cities()
{
    return namesOf(QStringLiteral("select CityName from city order by CityName"));
}

QStringList ReferenceNames::states()
{
    return namesOf(QStringLiteral("select stateName from State order by stateName"));
}

QStringList ReferenceNames::groups()
{
    return namesOf(QStringLiteral("select GroupName from groups order by GroupName"));
}
