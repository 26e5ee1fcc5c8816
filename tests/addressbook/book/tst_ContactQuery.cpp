#include "ContactQuery.h"
#include "PrintQt.h"

#include <gtest/gtest.h>

namespace {

const QString common =
    QStringLiteral("SELECT Names.SrNo, Names.Name, Home.hAddress, City.CityName, Home.hPhone1, "
                   "Home.hMobile,names.dtOfBirth FROM Names,Home,City where Names.SrNo = Home.SrNo and "
                   "City.CityID = Home.CityID");

QString behind(const char *parent, const char *node)
{
    const auto query = ContactQuery::ofNode(QString::fromLatin1(parent), QString::fromLatin1(node));
    EXPECT_TRUE(query && query->startsWith(common)) << parent;
    return query.value_or(QString()).mid(common.size());
}

} // namespace

TEST(ContactQuery, AllContactsHaveNoFurtherCondition)
{
    EXPECT_EQ(ContactQuery::all(), common);
}

TEST(ContactQuery, ANodeAddsItsCondition)
{
    EXPECT_EQ(behind("Groups", "Group17"), QStringLiteral(" and names.groupId=17"));
    EXPECT_EQ(behind("State", "State3"),
              QStringLiteral(" and Home.CityId in(select cityid from city where stateid=3)"));
    EXPECT_EQ(behind("City", "City-5"), QStringLiteral(" and City.CityId=-5"));
}

TEST(ContactQuery, TheCaseOfAHeadDoesNotCount)
{
    EXPECT_EQ(behind("GROUPS", "Group1"), QStringLiteral(" and names.groupId=1"));
    EXPECT_EQ(behind("city", "City1"), QStringLiteral(" and City.CityId=1"));
    EXPECT_EQ(behind("sTATE", "State1"),
              QStringLiteral(" and Home.CityId in(select cityid from city where stateid=1)"));
}

TEST(ContactQuery, OtherNodesHaveNoStatement)
{
    EXPECT_FALSE(ContactQuery::ofNode(QStringLiteral("Root"), QStringLiteral("Groups")));
    EXPECT_FALSE(ContactQuery::ofNode({}, QStringLiteral("Root")));
    EXPECT_FALSE(ContactQuery::ofNode({}, {}));
}

TEST(ContactQuery, LettersRunFromAToZ)
{
    EXPECT_EQ(ContactQuery::letterFilter(0), QStringLiteral(" and Names.Name like 'A%'"));
    EXPECT_EQ(ContactQuery::letterFilter(25), QStringLiteral(" and Names.Name like 'Z%'"));
}

TEST(ContactQuery, ABirthdayIsADayAndAMonthWithoutZeros)
{
    EXPECT_EQ(ContactQuery::birthdayFilter({2024, 3, 7}),
              QStringLiteral(" and day(dtOfBirth) =7 and month(dtofBirth) =3"));
    EXPECT_EQ(ContactQuery::birthdayFilter({1999, 12, 31}),
              QStringLiteral(" and day(dtOfBirth) =31 and month(dtofBirth) =12"));
}

TEST(ContactQuery, TheOrderComesLast)
{
    EXPECT_EQ(ContactQuery::inOrder(QStringLiteral("a"), QStringLiteral(" b")),
              QStringLiteral("a b order by Names.Name"));
    EXPECT_EQ(ContactQuery::inOrder({}, {}), QStringLiteral(" order by Names.Name"));
}
