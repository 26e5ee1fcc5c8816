#include "ReferenceIds.h"

#include "AddressDatabase.h"
#include "CityName.h"
#include "Recordset.h"
#include "RuntimeError.h"
#include "SeedRows.h"

namespace {

void addRow(const QString &table, std::initializer_list<std::pair<QStringView, FieldValue>> fields)
{
    Recordset rows;
    rows.open(QStringLiteral("select * from %1 where 1=0").arg(table), AddressConnection,
              Recordset::Kind::Updatable);
    rows.addNew();
    for (const auto &[name, value] : fields)
        rows.setField(name, value);
    rows.update();
}

quint8 stateOf(qint16 city)
{
    Recordset rows;
    rows.open(QStringLiteral("select StateID from City where CityID=%1").arg(city), AddressConnection);
    return quint8(rows.field(0).number());
}

} // namespace

/// The id that \a add makes; that of the seed row where the table takes no more rows.
template<class Add>
auto ReferenceIds::placeholderWhenFull(const char *kind, const QString &name, Add add)
{
    try {
        return add();
    } catch (const RuntimeError &error) {
        if (error.number() != ErrorNumber::Overflow)
            throw;
        m_remarks.append(
            QStringLiteral("There is no room for the %1 \"%2\".").arg(QLatin1String(kind), name));
        return decltype(add())(SeedRows::id);
    }
}

quint8 ReferenceIds::idIn(Table &table, const QString &name)
{
    if (name.isEmpty())
        return SeedRows::id;
    quint8 &id = table.ids[name];
    if (id == 0)
        id = table.find(name);
    if (id == 0) {
        id = placeholderWhenFull(table.kind, name, [&] {
            const quint8 next = table.next();
            addRow(table.name, {{table.idField, next}, {table.nameField, name}});
            return next;
        });
    }
    return id;
}

qint16 ReferenceIds::city(const QString &name, const QString &state)
{
    if (name.isEmpty() && state.isEmpty())
        return SeedRows::id;
    qint16 &id = m_cities[{name, state}];
    if (id == 0)
        id = placeholderWhenFull("city", name, [&] { return findOrAddCity(name, state); });
    return id;
}

qint16 ReferenceIds::findOrAddCity(const QString &name, const QString &state)
{
    const quint8 stateId = idIn(m_states, state);
    const QString candidates[] = {name, CityName::withState(name, state)};
    for (const QString &candidate : candidates) {
        if (candidate.isEmpty())
            continue;
        const qint16 found = GetCityId(candidate);
        if (found != 0 && (state.isEmpty() || stateOf(found) == stateId))
            return found;
        if (found == 0) {
            const qint16 next = NextCityId();
            addRow(QStringLiteral("City"),
                   {{u"CityID", next}, {u"CityName", candidate}, {u"StateID", stateId}});
            return next;
        }
    }
    return GetCityId(candidates[1]); // it is in this state by its name
}
