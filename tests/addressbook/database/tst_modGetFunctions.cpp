#include "modGetFunctions.h"

#include "AddressDatabase.h"
#include "ContactRows.h"
#include "DataError.h"
#include "ErrorNumberOf.h"
#include "PrintQt.h"
#include "ScratchAddressBook.h"

#include <gtest/gtest.h>

namespace {

struct GetFunctions : testing::Test
{
    static void execute(const QString &statement) { AddressConnection.execute(statement); }
    static void addNumbers(std::initializer_list<int> numbers)
    {
        for (const int number : numbers)
            ContactRows::addName(number, {.groupId = 1, .name = QStringLiteral("x")});
    }

    ScratchAddressBook book;
};

} // namespace

TEST_F(GetFunctions, FindTheSeed)
{
    EXPECT_EQ(GetGroupName(1), QStringLiteral("Default"));
    EXPECT_EQ(GetGroupId(QStringLiteral("Default")), 1);
    EXPECT_EQ(GetCityName(QStringLiteral("1")), QStringLiteral(".."));
    EXPECT_EQ(GetCityId(QStringLiteral("..")), 1);
    EXPECT_EQ(GetStateName(QStringLiteral("1")), QStringLiteral(".."));
    EXPECT_EQ(GetStateId(QStringLiteral("..")), 1);
    EXPECT_EQ(GetStateOfCity(1), QStringLiteral(".."));
}

TEST_F(GetFunctions, NamesGoWithoutCase)
{
    execute(QStringLiteral("insert into city values(2,'\u00C9lancourt',1)"));
    EXPECT_EQ(GetGroupId(QStringLiteral("DEFAULT")), 1);
    EXPECT_EQ(GetCityId(QStringLiteral("\u00E9LANCOURT")), 2);
    EXPECT_EQ(GetCityId(QStringLiteral("Elancourt")), 0);
}

TEST_F(GetFunctions, AnUnknownNameIsZero)
{
    EXPECT_EQ(GetGroupId(QStringLiteral("Nobody")), 0);
    EXPECT_EQ(GetCityId(QStringLiteral("Nowhere")), 0);
    EXPECT_EQ(GetCityId(QString()), 0);
    EXPECT_EQ(GetStateId(QStringLiteral("Nowhere")), 0);
}

TEST_F(GetFunctions, AnUnknownIdIsAnError)
{
    EXPECT_EQ(errorNumberOf([] { GetGroupName(9); }), DataError::NoCurrentRow);
    EXPECT_EQ(errorNumberOf([] { GetCityName(QStringLiteral("9")); }), DataError::NoCurrentRow);
    EXPECT_EQ(errorNumberOf([] { GetStateName(QStringLiteral("9")); }), DataError::NoCurrentRow);
    EXPECT_EQ(errorNumberOf([] { GetStateOfCity(9); }), DataError::NoCurrentRow);
    EXPECT_EQ(errorNumberOf([] { GetCityName(QString()); }), DataError::RejectedStatement);
}

TEST_F(GetFunctions, ASingleQuoteInANameIsAnError)
{
    const QString name = QStringLiteral("L'Aquila");
    EXPECT_EQ(errorNumberOf([&] { GetGroupId(name); }), DataError::RejectedStatement);
    EXPECT_EQ(errorNumberOf([&] { GetCityId(name); }), DataError::RejectedStatement);
    EXPECT_EQ(errorNumberOf([&] { GetStateId(name); }), DataError::RejectedStatement);
}

TEST_F(GetFunctions, TheStateOfACityIsFound)
{
    execute(QStringLiteral("Insert into State values(7,'Kent')"));
    execute(QStringLiteral("insert into city values(2,'Dover',7)"));
    EXPECT_EQ(GetStateOfCity(2), QStringLiteral("Kent"));
}

TEST_F(GetFunctions, NewIdsFollowTheHighest)
{
    EXPECT_EQ(NextGroupId(), 2);
    execute(QStringLiteral("Insert into Groups values(5,'Friends')"));
    EXPECT_EQ(NextGroupId(), 6);
    execute(QStringLiteral("insert into city values(300,'Dover',1)"));
    EXPECT_EQ(NextCityId(), 301);
    execute(QStringLiteral("Insert into State values(254,'Kent')"));
    EXPECT_EQ(NextStateId(), 255);
}

TEST_F(GetFunctions, TheFirstIdOfAnEmptyTableIsOne)
{
    execute(QStringLiteral("delete from City"));
    execute(QStringLiteral("delete from State"));
    execute(QStringLiteral("delete from Groups"));
    EXPECT_EQ(NextCityId(), 1);
    EXPECT_EQ(NextStateId(), 1);
    EXPECT_EQ(NextGroupId(), 1);
}

TEST_F(GetFunctions, AnIdThatDoesNotFitOverflows)
{
    execute(QStringLiteral("Insert into Groups values(255,'a')"));
    execute(QStringLiteral("Insert into State values(255,'a')"));
    execute(QStringLiteral("insert into city values(32767,'a',1)"));
    EXPECT_EQ(errorNumberOf([] { NextGroupId(); }), ErrorNumber::Overflow);
    EXPECT_EQ(errorNumberOf([] { NextStateId(); }), ErrorNumber::Overflow);
    EXPECT_EQ(errorNumberOf([] { NextCityId(); }), ErrorNumber::Overflow);
    EXPECT_EQ(GetGroupId(QStringLiteral("a")), 255);
    EXPECT_EQ(GetCityId(QStringLiteral("a")), 32767);
}

TEST_F(GetFunctions, ContactNumbersFillTheFirstGap)
{
    EXPECT_EQ(NextSrNo(), 1);
    addNumbers({1, 2, 4});
    EXPECT_EQ(NextSrNo(), 3);
    addNumbers({3});
    EXPECT_EQ(NextSrNo(), 5);
    ContactRows::remove(1);
    EXPECT_EQ(NextSrNo(), 1);
}

TEST_F(GetFunctions, ContactNumbersOverflow)
{
    execute(QStringLiteral("with recursive n(i) as (select 1 union all select i+1 from n where i<32766) "
                           "insert into Names select i,1,'','x','','',null from n"));
    EXPECT_EQ(NextSrNo(), 32767);
    addNumbers({32767});
    EXPECT_EQ(errorNumberOf([] { NextSrNo(); }), ErrorNumber::Overflow);
}
