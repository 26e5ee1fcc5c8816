#include "ContactImport.h"

#include "AddressDatabase.h"
#include "ContactExport.h"
#include "ContactPrinter.h"
#include "ContactRows.h"
#include "FullContact.h"
#include "FullDisk.h"
#include "HostileNames.h"
#include "RuntimeError.h"
#include "ScratchAddressBook.h"
#include "modGetFunctions.h"

#include <QFileInfo>
#include <gtest/gtest.h>

namespace {

struct ContactImportTest : testing::Test
{
    QString cities() const
    {
        return book.rows(QStringLiteral("select * from City order by CityID")).join(u',');
    }
    QString names() const
    {
        return book.rows(QStringLiteral("select SrNo, Name from Names order by SrNo")).join(u',');
    }
    static QStringList add(const QList<Contact> &contacts) { return ContactImport::add({contacts, {}}); }
    static Contact living(const char *name, const char *city, const char *state)
    {
        return {.name = QString::fromUtf8(name),
                .home = {{}, QString::fromUtf8(city), QString::fromUtf8(state), {}}};
    }

    ScratchAddressBook book;
};

} // namespace

TEST_F(ContactImportTest, IsReadBackAsItWas)
{
    Contact contact = fullContact();
    contact.name = QStringLiteral("B \"x\" O'Neil -- ;"); // at most 50 characters
    EXPECT_EQ(add({contact, {.name = QStringLiteral("Ann")}}), QStringList());
    const QList<Contact> read = ContactExport::all();
    ASSERT_EQ(read.size(), 2);
    EXPECT_EQ(read[0], (Contact{.name = QStringLiteral("Ann")}));
    EXPECT_EQ(read[1], contact);
}

TEST_F(ContactImportTest, TakesTheLowestFreeNumbers)
{
    for (const char *name : {"a", "b", "c"})
        ScratchAddressBook::addContact(QString::fromUtf8(name));
    ContactRows::remove(2);
    add({{.name = QStringLiteral("x")}, {.name = QStringLiteral("y")}});
    EXPECT_EQ(names(), QStringLiteral("1|a,2|x,3|c,4|y"));
}

TEST_F(ContactImportTest, AddsGroupsCitiesAndStatesOnce)
{
    Contact ann = living("Ann", "Dover", "Kent");
    ann.group = QStringLiteral("Friends");
    Contact ben = living("Ben", "DOVER", "kent");
    ben.group = QStringLiteral("friends");
    EXPECT_EQ(add({ann, ben, living("Cy", "Dover", "")}), QStringList());
    EXPECT_EQ(cities(), QStringLiteral("1|..|1,2|Dover|2"));
    EXPECT_EQ(book.rows(QStringLiteral("select * from Groups")).join(u','),
              QStringLiteral("1|Default,2|Friends"));
    EXPECT_EQ(book.rows(QStringLiteral("select CityID from Home")).join(u','), QStringLiteral("2,2,2"));
    EXPECT_EQ(book.rows(QStringLiteral("select GroupID from Names")).join(u','), QStringLiteral("2,2,1"));
}

TEST_F(ContactImportTest, ACityOfTheSameNameInAnotherStateIsNamedWithIt)
{
    const QList<Contact> contacts = {living("a", "Springfield", "Ohio"), living("b", "Springfield", "Oregon"),
                                     living("c", "Springfield", "Oregon"), living("d", "", "Ohio")};
    EXPECT_EQ(add(contacts), QStringList());
    EXPECT_EQ(cities(), QStringLiteral("1|..|1,2|Springfield|2,3|Springfield (Oregon)|3,4|(Ohio)|2"));
    EXPECT_EQ(ContactExport::all(), contacts);
}

TEST_F(ContactImportTest, NamesForStatementsHaveNoSingleQuote)
{
    Contact contact = living("Ann", "L'Aquila", "L'Aquila");
    contact.group = QStringLiteral("Ann's");
    EXPECT_EQ(add({contact}), QStringList());
    EXPECT_EQ(GetCityName(QStringLiteral("2")), QStringLiteral("L\u2019Aquila"));
    EXPECT_EQ(GetStateOfCity(GetCityId(GetCityName(QStringLiteral("2")))), QStringLiteral("L\u2019Aquila"));
    EXPECT_EQ(GetGroupId(GetGroupName(2)), 2);
}

TEST_F(ContactImportTest, WhatIsTooLongIsCutAndSaid)
{
    Contact contact = living("x", "y", "");
    contact.name = QString(60, u'n');
    contact.comment = QString(254, u'c') + QStringLiteral("\U0001F600");
    contact.home.address = QString(99, u'a') + QStringLiteral("\nb");
    contact.homePhone1 = QString(300, u'1');
    const QString n = QString(50, u'n');
    EXPECT_EQ(add({contact}),
              QStringList({n + QStringLiteral(": the name was cut to 50 characters."),
                           n + QStringLiteral(": the comment was cut to 255 characters."),
                           n + QStringLiteral(": the home address was cut to 100 characters."),
                           n + QStringLiteral(": the telephone number was cut to 255 characters.")}));
    EXPECT_EQ(ContactRows::name(1).comment, QString(254, u'c')); // no half of a character
    EXPECT_EQ(ContactRows::home(1).address, QString(99, u'a'));
}

TEST_F(ContactImportTest, AFieldOfOneLineHasOneLine)
{
    Contact contact = living("two\nlines\tx", "a\nb", "");
    contact.eMails = {QStringLiteral("a@x\r\nBcc: b@x")};
    contact.home.address = QStringLiteral("1 Road\r\n\x07Town\n");
    EXPECT_EQ(add({contact}), QStringList());
    EXPECT_EQ(ContactRows::name(1).name, QStringLiteral("two lines x"));
    EXPECT_EQ(ContactRows::eMails(1), QStringList(QStringLiteral("a@x Bcc: b@x")));
    EXPECT_EQ(ContactRows::home(1).address, QStringLiteral("1 Road\nTown"));
}

TEST_F(ContactImportTest, MoreStatesThanThereIsRoomForGetNone)
{
    QList<Contact> contacts;
    for (int i = 0; i < 256; ++i)
        contacts.append(living("x", QStringLiteral("City %1").arg(i).toUtf8(),
                               QStringLiteral("State %1").arg(i).toUtf8()));
    EXPECT_EQ(add(contacts), QStringList({QStringLiteral("There is no room for the state \"State 254\"."),
                                          QStringLiteral("There is no room for the state \"State 255\".")}));
    EXPECT_EQ(GetStateOfCity(GetCityId(QStringLiteral("City 253"))), QStringLiteral("State 253"));
    EXPECT_EQ(GetStateOfCity(GetCityId(QStringLiteral("City 255"))), QStringLiteral(".."));
}

TEST_F(ContactImportTest, MoreContactsThanThereIsRoomForAreRefused)
{
    AddressConnection.execute(
        QStringLiteral("with recursive n(i) as (select 1 union all select i+1 from n where "
                       "i<32766) insert into Names select i,1,'','x','','',null from n"));
    try {
        add({living("a", "b", "c"), living("d", "e", "f")});
        FAIL();
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.number(), ErrorNumber::Overflow);
        EXPECT_EQ(error.description(),
                  QStringLiteral("The address book has room for 1 more contacts, not for 2"));
    }
    EXPECT_EQ(cities(), QStringLiteral("1|..|1"));
    add({living("a", "", "")});
    EXPECT_EQ(ContactRows::name(32767).name, QStringLiteral("a"));
}

TEST_F(ContactImportTest, ARefusedContactLeavesNothingOfTheOthers)
{
    AddressConnection.execute(
        QStringLiteral("create trigger T before insert on Business when new.SrNo=2 begin select "
                       "raise(abort, 'no'); end"));
    EXPECT_THROW(add({living("a", "Dover", "Kent"), living("b", "Deal", "Kent")}), RuntimeError);
    EXPECT_EQ(names(), QString());
    EXPECT_EQ(cities(), QStringLiteral("1|..|1"));
}

TEST_F(ContactImportTest, AFullDiskAddsNothing)
{
    ScratchAddressBook::addContact(QStringLiteral("old"));
    QList<Contact> contacts;
    for (int i = 0; i < 500; ++i)
        contacts.append(living("x", "Dover", "Kent"));
    {
        const FullDisk disk(rlim_t(QFileInfo(book.path()).size()));
        EXPECT_THROW(add(contacts), RuntimeError);
    }
    EXPECT_EQ(names(), QStringLiteral("1|old"));
    EXPECT_EQ(cities(), QStringLiteral("1|..|1"));
    EXPECT_EQ(AddressConnection.damage(), QString());
}

TEST_F(ContactImportTest, AContactWithoutItsRowsIsExportedAsFarAsItGoes)
{
    ContactRows::addName(1, {.groupId = 1, .name = QStringLiteral("half")});
    EXPECT_EQ(ContactExport::all(), QList<Contact>({{.name = QStringLiteral("half")}}));
}

struct HostileImport : ContactImportTest, testing::WithParamInterface<HostileName>
{};

TEST_P(HostileImport, IsAddedAndCanBeLookedUp)
{
    const QString text = GetParam().text();
    Contact contact = fullContact();
    contact.name = contact.nickName = contact.comment = contact.group = contact.company = text;
    contact.home = contact.work = {text, text, text, text};
    contact.eMails = {text};
    add({contact});
    const QList<Contact> read = ContactExport::all();
    ASSERT_EQ(read.size(), 1);
    EXPECT_EQ(GetCityId(GetCityName(QString::number(ContactRows::home(1).cityId))),
              ContactRows::home(1).cityId);
    EXPECT_EQ(GetGroupId(GetGroupName(ContactRows::name(1).groupId)), ContactRows::name(1).groupId);
}

INSTANTIATE_TEST_SUITE_P(Names, HostileImport, testing::ValuesIn(HostileNames::texts()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);
