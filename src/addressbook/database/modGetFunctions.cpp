#include "modGetFunctions.h"

#include "AddressDatabase.h"
#include "Recordset.h"
#include "RuntimeError.h"

#include <limits>

using Kind = Recordset::Kind;

namespace {

template<class Number>
Number narrowed(qint64 number)
{
    using Limits = std::numeric_limits<Number>;
    if (number < Limits::min() || number > Limits::max())
        throw RuntimeError(ErrorNumber::Overflow, {}, QString::number(number));
    return Number(number);
}

QString nameFrom(const QString &statement, Kind kind)
{
    Recordset rows;
    rows.open(statement, AddressConnection, kind);
    return rows.field(0).text();
}

template<class Id>
Id idOf(const QString &statement, const QString &name, Kind kind)
{
    Recordset rows;
    rows.open(statement + name + u'\'', AddressConnection, kind);
    return rows.bof() ? Id(0) : narrowed<Id>(rows.field(0).number());
}

template<class Id>
Id idAfterLast(const QString &statement)
{
    Recordset rows;
    rows.open(statement, AddressConnection, Kind::Updatable);
    if (rows.bof())
        return 1;
    rows.moveLast();
    return narrowed<Id>(rows.field(0).number() + 1);
}

} // namespace

QString GetGroupName(qint16 id)
{
    return nameFrom(QStringLiteral("select GroupName from Groups where groupId=") + QString::number(id),
                    Kind::Default);
}

quint8 GetGroupId(const QString &name)
{
    return idOf<quint8>(QStringLiteral("select groupId from Groups where groupName='"), name, Kind::Default);
}

QString GetCityName(const QString &id)
{
    return nameFrom(QStringLiteral("select cityName from city where cityId=") + id, Kind::Updatable);
}

qint16 GetCityId(const QString &name)
{
    return idOf<qint16>(QStringLiteral("select cityId from city where cityName='"), name, Kind::Updatable);
}

QString GetStateName(const QString &id)
{
    return nameFrom(QStringLiteral("select stateName from State where stateId=") + id, Kind::Updatable);
}

quint8 GetStateId(const QString &name)
{
    return idOf<quint8>(QStringLiteral("select stateId from State where stateName='"), name, Kind::Updatable);
}

QString GetStateOfCity(qint16 cityId)
{
    return nameFrom(
        QStringLiteral("select stateName from state where stateid=(select stateid from city where cityID=") +
            QString::number(cityId) + u')',
        Kind::Default);
}

quint8 NextGroupId()
{
    return idAfterLast<quint8>(QStringLiteral("select groupId from groups order by groupID"));
}

qint16 NextCityId()
{
    return idAfterLast<qint16>(QStringLiteral("select cityId from City order by CityId"));
}

quint8 NextStateId()
{
    return idAfterLast<quint8>(QStringLiteral("select stateId from State order by stateID"));
}

qint32 NextSrNo()
{
    Recordset rows;
    rows.open(QStringLiteral("select srNo from Names order by srNo"), AddressConnection, Kind::Updatable);
    qint16 number = 1;
    for (; !rows.eof() && rows.field(0).number() == number; rows.moveNext())
        number = narrowed<qint16>(number + 1);
    return number;
}
