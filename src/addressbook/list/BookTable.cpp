#include "BookTable.h"

#include <algorithm>

std::span<const BookTable> BookTable::all()
{
    static const BookTable tables[] = {
        {QStringLiteral("Groups"), QStringLiteral("Groups"),
         QStringLiteral("Select * from groups order by groupName"), QStringLiteral("GroupID"),
         QStringLiteral("GroupName"), QStringLiteral("Group"), QStringLiteral(" and names.groupId=%1")},
        {QStringLiteral("City"), QStringLiteral("City/Town"),
         QStringLiteral("Select * from City order by CityName"), QStringLiteral("CityID"),
         QStringLiteral("CityName"), QStringLiteral("City"), QStringLiteral(" and City.CityId=%1")},
        {QStringLiteral("State"), QStringLiteral("County/State/Province"),
         QStringLiteral("Select * from State order by stateName"), QStringLiteral("StateID"),
         QStringLiteral("StateName"), QStringLiteral("State"),
         QStringLiteral(" and Home.CityId in(select cityid from city where stateid=%1)")},
    };
    return tables;
}

const BookTable *BookTable::of(const QString &key)
{
    const auto found = std::ranges::find_if(
        all(), [&](const BookTable &table) { return table.key.compare(key, Qt::CaseInsensitive) == 0; });
    return found == all().end() ? nullptr : &*found;
}
