#include "CityRows.h"

#include "AddressDatabase.h"
#include "modGetFunctions.h"

void CityRows::add(const QString &name, const QString &state)
{
    const QString id = QString::number(NextCityId());
    AddressConnection.execute(QStringLiteral("insert into city values(%1,'%2',%3)")
                                  .arg(id, name, QString::number(GetStateId(state))));
}

void CityRows::change(qint16 id, const QString &name, const QString &state)
{
    AddressConnection.execute(QStringLiteral("update city set CityName='%1', StateID=%2 where CityId=%3")
                                  .arg(name, QString::number(GetStateId(state)), QString::number(id)));
}
