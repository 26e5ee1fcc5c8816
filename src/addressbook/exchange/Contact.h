#pragma once

#include "Place.h"

#include <QDate>
#include <QStringList>
#include <optional>

/// All that the address book knows of one contact, in words: what files of other programs are read into and
/// written from. A text that is not known is empty; the names of the database's placeholder rows are not in
/// it.
struct Contact
{
    /// The year of a birth date whose year is not known, as other programs have it. It is a leap year.
    static constexpr int unknownYear = 1604;

    QString salutation = {};
    QString name = {};
    QString nickName = {};
    QString group = {};
    QString comment = {};
    std::optional<QDate> birthDate = {};
    QStringList eMails = {};

    Place home = {};
    QString homePhone1 = {};
    QString homePhone2 = {};
    QString homeMobile = {};

    Place work = {};
    QString workPhone1 = {};
    QString workPhone2 = {};
    QString workFax = {};
    QString workMobile = {};
    QString company = {};
    QString post = {};
    QString department = {};

    friend bool operator==(const Contact &, const Contact &) = default;
};
