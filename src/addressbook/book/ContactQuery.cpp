#include "ContactQuery.h"

namespace {

bool isHead(const QString &key, const QString &head)
{
    return key.compare(head, Qt::CaseInsensitive) == 0;
}

} // namespace

QString ContactQuery::all()
{
    return QStringLiteral("SELECT Names.SrNo, Names.Name, Home.hAddress, City.CityName, Home.hPhone1, "
                          "Home.hMobile,names.dtOfBirth FROM Names,Home,City where Names.SrNo = Home.SrNo "
                          "and City.CityID = Home.CityID");
}

std::optional<QString> ContactQuery::ofNode(const QString &parentKey, const QString &nodeKey)
{
    if (isHead(parentKey, QStringLiteral("Groups")))
        return all() + QStringLiteral(" and names.groupId=") + nodeKey.mid(5); // behind "Group"
    if (isHead(parentKey, QStringLiteral("State")))
        return all() + QStringLiteral(" and Home.CityId in(select cityid from city where stateid=") +
               nodeKey.mid(5) + u')'; // behind "State"
    if (isHead(parentKey, QStringLiteral("City")))
        return all() + QStringLiteral(" and City.CityId=") + nodeKey.mid(4); // behind "City"
    return {};
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
