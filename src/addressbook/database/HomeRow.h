#pragma once

#include <QString>

/// A contact's row of the table Home, without its number.
struct HomeRow
{
    QString address = {}; ///< may have several lines
    qint16 cityId = 0;
    QString zipCode = {};
    QString phone1 = {};
    QString phone2 = {};
    QString mobile = {};

    friend bool operator==(const HomeRow &, const HomeRow &) = default;
};
