#pragma once

#include "ScratchHome.h"
#include "ScratchProgramFolder.h"

#include <QStringList>

/// The address book's database as it is installed, in a program's folder and a home of its own, for one test.
class ScratchAddressBook
{
public:
    ScratchAddressBook();
    ~ScratchAddressBook();

    QString path() const; ///< of the database
    const ScratchHome &home() const { return m_home; }

    /// The rows that a connection of its own reads, a text each: fields joined by "|", NULL as "NULL".
    QStringList rows(const QString &statement) const;

    /// A contact with nothing but a name, under the next free number, which is returned.
    static qint32 addContact(const QString &name, qint16 homeCity = 1);

private:
    ScratchHome m_home;
    ScratchProgramFolder m_folder;
};
