#include "AddressDatabase.h"
#include "ContactRows.h"
#include "PrintQt.h"
#include "Recordset.h"
#include "RuntimeError.h"
#include "ScratchAddressBook.h"

#include <gtest/gtest.h>

namespace {

struct Schema : testing::Test
{
    /// What is wrong with \a statement; empty where it runs.
    static QString refusal(const char *statement)
    {
        try {
            AddressConnection.execute(QString::fromUtf8(statement));
        } catch (const RuntimeError &error) {
            return error.description();
        }
        return {};
    }
    static QString columns(const char *table)
    {
        Recordset rows;
        rows.open(QStringLiteral("select * from ") + QLatin1String(table), AddressConnection);
        QStringList names;
        for (int i = 0; i < rows.fieldCount(); ++i)
            names.append(rows.fieldName(i));
        return names.join(u' ');
    }
    QString count(const char *table) const
    {
        return book.rows(QStringLiteral("select count(*) from ") + QLatin1String(table)).join(u' ');
    }

    ScratchAddressBook book;
};

} // namespace

TEST_F(Schema, HasTheColumnsInTheirOrder)
{
    EXPECT_EQ(columns("names"), QStringLiteral("SrNo GroupID Salutation Name NickName Comment dtOfBirth"));
    EXPECT_EQ(columns("home"), QStringLiteral("SrNo hAddress CityID hZipCode hPhone1 hPhone2 hMobile"));
    EXPECT_EQ(columns("business"),
              QStringLiteral("SrNo bAddress CityID bZipCode bPhone1 bPhone2 bFax bPager bCompany "
                             "bPost bDepartment"));
    EXPECT_EQ(columns("emails"), QStringLiteral("SrNo Email_Id"));
    EXPECT_EQ(columns("city"), QStringLiteral("CityID CityName StateID"));
    EXPECT_EQ(columns("state"), QStringLiteral("StateID StateName"));
    EXPECT_EQ(columns("groups"), QStringLiteral("GroupID GroupName"));
}

TEST_F(Schema, HasItsSeedAndNoContact)
{
    EXPECT_EQ(book.rows(QStringLiteral("select * from Groups")), QStringList(QStringLiteral("1|Default")));
    EXPECT_EQ(book.rows(QStringLiteral("select * from City")), QStringList(QStringLiteral("1|..|1")));
    EXPECT_EQ(book.rows(QStringLiteral("select * from State")), QStringList(QStringLiteral("1|..")));
    EXPECT_EQ(count("Names"), QStringLiteral("0"));
}

TEST_F(Schema, DeletingANameTakesItsOtherRowsAlong)
{
    for (const char *name : {"Ann", "Ben"})
        ContactRows::addEMails(ScratchAddressBook::addContact(QString::fromUtf8(name)),
                               {QStringLiteral("a"), QStringLiteral("b")});
    AddressConnection.execute(QStringLiteral("delete from names where srno=1"));
    EXPECT_EQ(book.rows(QStringLiteral("select Name from Names")), QStringList(QStringLiteral("Ben")));
    for (const char *table : {"Home", "Business"})
        EXPECT_EQ(book.rows(QStringLiteral("select SrNo from ") + QLatin1String(table)),
                  QStringList(QStringLiteral("2")));
    EXPECT_EQ(book.rows(QStringLiteral("select SrNo from EMails")).join(u' '), QStringLiteral("2 2"));
}

TEST_F(Schema, RowsWithoutTheirRelationAreRefused)
{
    const QString city = QStringLiteral("A related record is required in table 'City'.");
    ContactRows::addName(1, {.groupId = 1, .name = QStringLiteral("Ann")});
    for (const char *id : {"0", "9", "-1"}) {
        EXPECT_EQ(refusal(QByteArray("insert into Home values(1,'',") + id + ",'','','','')"), city);
        EXPECT_EQ(refusal(QByteArray("insert into Business values(1,'',") + id + ",'','','','','','','','')"),
                  city);
    }
    EXPECT_EQ(refusal("insert into Names values(2,0,'','Ben','','',null)"),
              QStringLiteral("A related record is required in table 'Groups'."));
    const QString state = QStringLiteral("A related record is required in table 'State'.");
    EXPECT_EQ(refusal("insert into city values(2,'Dover',0)"), state);
    EXPECT_EQ(refusal("update city set CityName='Dover', StateID=0 where CityId=1"), state);
    EXPECT_EQ(refusal("insert into Home values(5,'',1,'','','','')"),
              QStringLiteral("FOREIGN KEY constraint failed"));
    EXPECT_EQ(refusal("insert into EMails values(5,'a')"), QStringLiteral("FOREIGN KEY constraint failed"));
    EXPECT_EQ(count("Home") + count("Business") + count("City"), QStringLiteral("001"));
}

TEST_F(Schema, UsedReferencesCannotBeRemoved)
{
    ScratchAddressBook::addContact(QStringLiteral("Ann"));
    for (const char *table : {"Groups", "City", "State"})
        EXPECT_EQ(refusal(QByteArray("delete from ") + table),
                  QStringLiteral("FOREIGN KEY constraint failed"));
}

TEST_F(Schema, NumbersKeepTheirRanges)
{
    for (const char *statement : {"Insert into Groups values(256,'a')", "Insert into Groups values(-1,'a')",
                                  "Insert into State values(256,'a')", "insert into city values(32768,'a',1)",
                                  "insert into Names values(2147483648,1,'','x','','',null)"})
        EXPECT_TRUE(refusal(statement).startsWith(QLatin1String("CHECK constraint failed"))) << statement;
    for (const char *statement : {"Insert into Groups values('x','a')", "Insert into State values(2.5,'a')"})
        EXPECT_EQ(refusal(statement), QStringLiteral("datatype mismatch")) << statement;
    EXPECT_EQ(refusal("Insert into Groups values(255,'a')"), QString());
    EXPECT_EQ(refusal("insert into city values(32767,'a',1)"), QString());
}

TEST_F(Schema, TextsMayBeEmptyButNotNull)
{
    EXPECT_EQ(refusal("insert into Names values(1,1,'','','','',null)"), QString());
    EXPECT_EQ(refusal("insert into Home values(1,'',1,'','','','')"), QString());
    EXPECT_EQ(refusal("insert into EMails values(1,'')"), QString());
    EXPECT_EQ(refusal("insert into Names values(2,1,'','',null,'',null)"),
              QStringLiteral("NOT NULL constraint failed: Names.NickName"));
}

TEST_F(Schema, TextsKeepTheirLimits)
{
    ScratchAddressBook::addContact(QStringLiteral("Ann"));
    const QByteArray fifty = QByteArray("\xC3\xA9").repeated(50);
    EXPECT_EQ(refusal("update Names set Name='" + fifty + "'"), QString());
    EXPECT_EQ(refusal("update Names set Name='" + fifty + "x'"),
              QStringLiteral("CHECK constraint failed: length(Name) <= 50"));
    EXPECT_EQ(refusal("update Names set Comment='" + QByteArray(256, 'x') + "'"),
              QStringLiteral("CHECK constraint failed: length(Comment) <= 255"));
    EXPECT_EQ(refusal("update Home set hAddress='" + QByteArray(101, 'x') + "'"),
              QStringLiteral("CHECK constraint failed: length(hAddress) <= 100"));
    EXPECT_EQ(refusal("update Home set hPhone1='" + QByteArray(1000, '1') + "'"), QString());
}
