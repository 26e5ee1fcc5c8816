#pragma once

#include <QString>

/// Where a contact lives or works.
struct Place
{
    QString address = {}; ///< may have several lines
    QString city = {};
    QString state = {};
    QString zipCode = {};

    bool isEmpty() const
    {
        return address.isEmpty() && city.isEmpty() && state.isEmpty() && zipCode.isEmpty();
    }

    friend bool operator==(const Place &, const Place &) = default;
};
