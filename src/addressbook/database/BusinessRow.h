#pragma once

#include <QString>

/// A contact's row of the table Business, without its number.
struct BusinessRow
{
    QString address = {}; ///< may have several lines
    qint16 cityId = 0;
    QString zipCode = {};
    QString phone1 = {};
    QString phone2 = {};
    QString fax = {};
    QString pager = {}; ///< which windows call the work mobile
    QString company = {};
    QString post = {};
    QString department = {};

    friend bool operator==(const BusinessRow &, const BusinessRow &) = default;
};
