#include "ScratchAddressBook.h"

#include "AddressDatabase.h"
#include "ContactRows.h"
#include "Recordset.h"
#include "modGetFunctions.h"

#include <QFile>
#include <gtest/gtest.h>

ScratchAddressBook::ScratchAddressBook()
{
    EXPECT_TRUE(QFile::copy(QStringLiteral(QUILL_DATABASE), path()));
    OpenAddressDatabase();
}

ScratchAddressBook::~ScratchAddressBook()
{
    AddressConnection.close();
}

QString ScratchAddressBook::path() const
{
    return m_folder.path() + QStringLiteral("/data97.mdb");
}

QStringList ScratchAddressBook::rows(const QString &statement) const
{
    Connection connection;
    connection.open(path());
    Recordset recordset;
    QStringList rows;
    for (recordset.open(statement, connection); !recordset.eof(); recordset.moveNext()) {
        QStringList fields;
        for (int i = 0; i < recordset.fieldCount(); ++i)
            fields.append(recordset.field(i).isNull() ? QStringLiteral("NULL") : recordset.field(i).text());
        rows.append(fields.join(u'|'));
    }
    return rows;
}

qint32 ScratchAddressBook::addContact(const QString &name, qint16 homeCity)
{
    const qint32 number = NextSrNo();
    ContactRows::addName(number, {.groupId = 1, .name = name});
    ContactRows::addHome(number, {.cityId = homeCity});
    ContactRows::addBusiness(number, {.cityId = 1});
    return number;
}
