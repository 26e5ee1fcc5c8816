#pragma once

#include "Contact.h"

#include <QList>
#include <QStringList>

/// The contacts of a file, and what of the file could not be taken over, a line each for the user.
struct ContactList
{
    QList<Contact> contacts;
    QStringList remarks;
};
