#pragma once

#include "modGetFunctions.h"

#include <QHash>
#include <QStringList>

/// The ids of groups and cities by their names; rows that are missing are added. For many contacts in one
/// transaction: each name is looked up once.
///
/// Names have no single quote in them. The functions throw RuntimeError with the numbers of DataError.
class ReferenceIds
{
public:
    /// An empty name is the default group.
    quint8 group(const QString &name) { return idIn(m_groups, name); }
    /// The city of this name in \a state, either of which may be empty. Where a city of this name is in
    /// another state, it is "name (state)", since names of cities are unique.
    qint16 city(const QString &name, const QString &state);

    /// What found no room, once each.
    QStringList remarks() const { return m_remarks; }

private:
    struct Table
    {
        const char *kind;
        QString name;
        QStringView idField;
        QStringView nameField;
        quint8 (*find)(const QString &name);
        quint8 (*next)();
        QHash<QString, quint8> ids = {};
    };

    quint8 idIn(Table &table, const QString &name);
    qint16 findOrAddCity(const QString &name, const QString &state);
    template<class Add>
    auto placeholderWhenFull(const char *kind, const QString &name, Add add);

    Table m_groups = {"group", QStringLiteral("Groups"), u"GroupID", u"GroupName", GetGroupId, NextGroupId};
    Table m_states = {"state", QStringLiteral("State"), u"StateID", u"StateName", GetStateId, NextStateId};
    QHash<QPair<QString, QString>, qint16> m_cities;
    QStringList m_remarks;
};
