#include "ContactQuery.h"

#include "BookTable.h"

QString ContactQuery::all()
{
    return QStringLiteral("SELECT Names.SrNo, Names.Name, Home.hAddress, City.CityName, Home.hPhone1, "
                          "Home.hMobile,names.dtOfBirth FROM Names,Home,City where Names.SrNo = Home.SrNo "
                          "and City.CityID = Home.CityID");
}

std::optional<QString> ContactQuery::ofNode(const QString &parentKey, const QString &nodeKey)
{
    const BookTable *table = BookTable::of(parentKey);
    if (!table)
        return {};
    return all() + table->condition.arg(nodeKey.mid(table->rowKey.size()));
}

QString ContactQuery::letterFilter(int index)
{
    return QStringLiteral(" and Names.Name like '%1%'").arg(QChar(u'A' + index));
}

QString ContactQuery::birthdayFilter(QDate date)
{
    return QStringLiteral(" and day(dtOfBirth) =%1 and month(dtofBirth) =%2")
        .arg(QString::number(date.day()), QString::number(date.month()));
}

QString ContactQuery::inOrder(const QString &query, const QString &filter)
{
    return query + filter + QStringLiteral(" order by Names.Name");
}
