#include "ContactRows.h"

#include "AddressDatabase.h"
#include "DataError.h"
#include "ErrorNumberOf.h"
#include "FullDisk.h"
#include "HostileNames.h"
#include "PrintQt.h"
#include "ScratchAddressBook.h"
#include "Transaction.h"
#include "modGetFunctions.h"

#include <QFileInfo>
#include <gtest/gtest.h>

namespace {

const NameRow fullName = {1,
                          QStringLiteral("Mr."),
                          QStringLiteral("Jim O'Neil"),
                          QStringLiteral("Jimmy"),
                          QStringLiteral("100% {\\b brave}; -- \"x\""),
                          QDate(1999, 9, 5)};
const HomeRow fullHome = {QStringLiteral("1 Road\r\nTown"),
                          1,
                          QStringLiteral("AB1"),
                          QStringLiteral("+44 1"),
                          QStringLiteral("2"),
                          QStringLiteral("3")};
const BusinessRow fullBusiness = {QStringLiteral("2 Lane"), 1,
                                  QStringLiteral("CD2"),    QStringLiteral("4"),
                                  QStringLiteral("5"),      QStringLiteral("6"),
                                  QStringLiteral("7"),      QStringLiteral("Works"),
                                  QStringLiteral("Boss"),   QStringLiteral("Top")};

struct ContactRowsTest : testing::Test
{
    QString numbersIn(const char *table) const
    {
        return book.rows(QStringLiteral("select SrNo from ") + QLatin1String(table)).join(u' ');
    }

    /// A save as the editor makes it; \a home is the id of the home city.
    static void save(qint32 number, const QString &name, qint16 home)
    {
        Transaction transaction(AddressConnection, Transaction::Unfinished::Keep);
        ContactRows::remove(number);
        ContactRows::addName(number, {.groupId = 1, .name = name});
        ContactRows::addEMails(number, {QStringLiteral("a@x")});
        ContactRows::addHome(number, {.cityId = home});
        ContactRows::addBusiness(number, {.cityId = 1});
        transaction.commit();
    }

    ScratchAddressBook book;
};

} // namespace

TEST_F(ContactRowsTest, AreReadAsTheyWereWritten)
{
    const QStringList eMails = {QStringLiteral("b@x"), QStringLiteral("a@x"), QString(),
                                QStringLiteral("two\nlines")};
    ContactRows::addName(5, fullName);
    ContactRows::addEMails(5, eMails);
    ContactRows::addHome(5, fullHome);
    ContactRows::addBusiness(5, fullBusiness);
    EXPECT_EQ(ContactRows::name(5), fullName);
    EXPECT_EQ(ContactRows::eMails(5), eMails);
    EXPECT_EQ(ContactRows::home(5), fullHome);
    EXPECT_EQ(ContactRows::business(5), fullBusiness);
    EXPECT_EQ(book.rows(QStringLiteral("select dtOfBirth from Names")),
              QStringList(QStringLiteral("05-Sep-1999")));
}

TEST_F(ContactRowsTest, NothingButANameIsEnough)
{
    const qint32 number = ScratchAddressBook::addContact(QStringLiteral("Ann"));
    EXPECT_EQ(book.rows(QStringLiteral("select * from Names")),
              QStringList(QStringLiteral("1|1||Ann|||NULL")));
    EXPECT_EQ(book.rows(QStringLiteral("select * from Home")), QStringList(QStringLiteral("1||1||||")));
    EXPECT_EQ(book.rows(QStringLiteral("select * from Business")),
              QStringList(QStringLiteral("1||1||||||||")));
    EXPECT_EQ(ContactRows::eMails(number), QStringList());
    EXPECT_EQ(ContactRows::name(number).birthDate, std::nullopt);
}

TEST_F(ContactRowsTest, MissingRowsAreAnError)
{
    ContactRows::addName(1, {.groupId = 1, .name = QStringLiteral("Ann")});
    EXPECT_EQ(errorNumberOf([] { ContactRows::name(2); }), DataError::NoCurrentRow);
    EXPECT_EQ(errorNumberOf([] { ContactRows::home(1); }), DataError::NoCurrentRow);
    EXPECT_EQ(errorNumberOf([] { ContactRows::business(1); }), DataError::NoCurrentRow);
}

TEST_F(ContactRowsTest, RemovingLeavesNothingOfAContact)
{
    ScratchAddressBook::addContact(QStringLiteral("Ann"));
    ContactRows::addEMails(1, {QStringLiteral("a")});
    ContactRows::remove(1);
    ContactRows::remove(1);
    for (const char *table : {"Names", "EMails", "Home", "Business"})
        EXPECT_EQ(numbersIn(table), QString()) << table;
}

TEST_F(ContactRowsTest, WhatARefusedSaveHasWrittenStays)
{
    save(1, QStringLiteral("Ann"), 1);
    EXPECT_EQ(errorNumberOf([] { save(1, QStringLiteral("Anna"), 0); }), DataError::Engine);
    EXPECT_EQ(book.rows(QStringLiteral("select Name from Names")), QStringList(QStringLiteral("Anna")));
    EXPECT_EQ(numbersIn("EMails"), QStringLiteral("1"));
    EXPECT_EQ(numbersIn("Home"), QString());
    save(1, QStringLiteral("Anne"), 1);
    EXPECT_EQ(book.rows(QStringLiteral("select Name from Names")), QStringList(QStringLiteral("Anne")));
    EXPECT_EQ(numbersIn("EMails") + numbersIn("Home") + numbersIn("Business"), QStringLiteral("111"));
}

TEST_F(ContactRowsTest, WhatANewContactsRefusedSaveHasWrittenStays)
{
    EXPECT_EQ(errorNumberOf([] { save(NextSrNo(), QStringLiteral("Ann"), 0); }), DataError::Engine);
    save(NextSrNo(), QStringLiteral("Ann"), 1);
    EXPECT_EQ(numbersIn("Names"), QStringLiteral("1 2"));
    EXPECT_EQ(numbersIn("Home"), QStringLiteral("2"));
}

TEST_F(ContactRowsTest, AGroupThatIsGoneIsRefused)
{
    EXPECT_EQ(errorNumberOf([] { ContactRows::addName(1, {.groupId = 0, .name = QStringLiteral("x")}); }),
              DataError::Engine);
    EXPECT_EQ(numbersIn("Names"), QString());
}

TEST_F(ContactRowsTest, AFullDiskLeavesTheOldContactWhole)
{
    for (int i = 1; i <= 100; ++i)
        save(i, QStringLiteral("old"), 1);
    bool hasFailed = false;
    {
        const FullDisk disk(rlim_t(QFileInfo(book.path()).size()));
        for (int i = 1; i <= 400 && !hasFailed; ++i)
            hasFailed = errorNumberOf([&] { save(i, QString(50, u'n'), 1); }) == DataError::Engine;
    }
    ASSERT_TRUE(hasFailed);
    EXPECT_FALSE(AddressConnection.isInTransaction());
    EXPECT_EQ(AddressConnection.damage(), QString());
    for (const char *table : {"EMails", "Home", "Business"})
        EXPECT_EQ(numbersIn(table), numbersIn("Names")) << table;
    save(1, QStringLiteral("new"), 1);
    EXPECT_EQ(ContactRows::name(1).name, QStringLiteral("new"));
}

struct HostileContact : ContactRowsTest, testing::WithParamInterface<HostileName>
{};

TEST_P(HostileContact, IsKeptLetterByLetter)
{
    const QString text = GetParam().text().left(50);
    ContactRows::addName(1, {1, text, text, text, text, {}});
    ContactRows::addEMails(1, {text});
    ContactRows::addHome(1, {text, 1, text, text, text, text});
    EXPECT_EQ(ContactRows::name(1), NameRow({1, text, text, text, text, {}}));
    EXPECT_EQ(ContactRows::eMails(1), QStringList(text));
    EXPECT_EQ(ContactRows::home(1), HomeRow({text, 1, text, text, text, text}));
}

INSTANTIATE_TEST_SUITE_P(Names, HostileContact, testing::ValuesIn(HostileNames::texts()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);
