#include "ReferenceEntity.h"

#include "AddressDatabase.h"
#include "modGetFunctions.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr ReferenceEntity entities[] = {
    {
        .type = "State",
        .caption = "County/ State/ Province",
        .alreadyExists = "County/State/Province Already Exists...",
        .insertStatement = "Insert into State values(%1,'%2')",
        .updateStatement = "update State set StateName='%1' where StateId=%2",
        .name = [](qint16 id) { return GetStateName(QString::number(id)); },
        .id = GetStateId,
        .nextId = NextStateId,
    },
    {
        .type = "Group",
        .caption = "Group",
        .alreadyExists = "Group Alread Exists...", // Intended: "Alread"
        .insertStatement = "Insert into Groups values(%1,'%2')",
        .updateStatement = "update Groups set GroupName='%1' where GroupId=%2",
        .name = GetGroupName,
        .id = GetGroupId,
        .nextId = NextGroupId,
    },
};

} // namespace

const ReferenceEntity *ReferenceEntity::of(const QString &type)
{
    const auto *found = std::ranges::find_if(
        entities, [&](const ReferenceEntity &entity) { return type == QLatin1String(entity.type); });
    return found == std::end(entities) ? nullptr : found;
}

void ReferenceEntity::add(const QString &text) const
{
    AddressConnection.execute(QString::fromLatin1(insertStatement).arg(QString::number(nextId()), text));
}

void ReferenceEntity::rename(qint16 row, const QString &text) const
{
    AddressConnection.execute(QString::fromLatin1(updateStatement).arg(text, QString::number(row)));
}
