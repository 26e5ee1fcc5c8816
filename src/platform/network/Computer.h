#pragma once

#include <QString>

/// A computer of the network.
struct Computer
{
    QString name;    ///< a host label, upper case
    QString address; ///< IPv4; empty where it is not known

    friend bool operator==(const Computer &, const Computer &) = default;
};
