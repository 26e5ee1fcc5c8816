#pragma once

#include <QDate>
#include <QString>
#include <optional>

/// A contact's row of the table Names, without its number.
struct NameRow
{
    quint8 groupId = 0;
    QString salutation = {};
    QString name = {};
    QString nickName = {};
    QString comment = {};
    std::optional<QDate> birthDate = {};

    friend bool operator==(const NameRow &, const NameRow &) = default;
};
