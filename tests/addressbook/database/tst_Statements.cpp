#include "AddressDatabase.h"
#include "ContactRows.h"
#include "DateText.h"
#include "PrintQt.h"
#include "Recordset.h"
#include "RowName.h"
#include "RuntimeError.h"
#include "ScratchAddressBook.h"
#include "modGetFunctions.h"

#include <gtest/gtest.h>

// The statements of the windows and the reports, letter by letter, on a small address book.

namespace {

const char contactsOfView[] =
    "SELECT Names.SrNo, Names.Name, Home.hAddress, City.CityName, Home.hPhone1, Home.hMobile,names.dtOfBirth "
    "FROM Names,Home,City where Names.SrNo = Home.SrNo and City.CityID = Home.CityID";

struct StatementsTest : testing::Test
{
    StatementsTest()
    {
        execute("Insert into Groups values(2,'Friends')");
        execute("Insert into State values(2,'Kent')");
        execute("insert into city values(2,'Dover',2)");
        execute("insert into city values(3,'\u00C9vry',1)");
        addContact(1, "Bea", 2, 2, "1999-09-05");
        addContact(2, "adam", 1, 3, "1960-02-29");
        addContact(3, "Carl O'Neil", 2, 1, "");
    }

    static void execute(const QString &statement) { AddressConnection.execute(statement); }
    static void execute(const char *statement) { execute(QString::fromUtf8(statement)); }
    static void addContact(qint32 number, const char *name, quint8 group, qint16 city, const char *born)
    {
        const QDate date = QDate::fromString(QLatin1String(born), Qt::ISODate);
        ContactRows::addName(number, {.groupId = group,
                                      .name = QString::fromUtf8(name),
                                      .birthDate = date.isValid() ? std::optional(date) : std::nullopt});
        ContactRows::addEMails(number,
                               {QStringLiteral("%1@x").arg(number), QStringLiteral("%1@y").arg(number)});
        ContactRows::addHome(number, {.address = QStringLiteral("1 Road\r\nTown"), .cityId = city});
        ContactRows::addBusiness(number, {.cityId = 2, .company = QStringLiteral("Works")});
    }
    /// The second field of each row, or the first where there is no other.
    static QString seen(const QString &statement, Recordset::Kind kind = Recordset::Kind::Default)
    {
        Recordset rows;
        QStringList texts;
        for (rows.open(statement, AddressConnection, kind); !rows.eof(); rows.moveNext())
            texts.append(rows.field(rows.fieldCount() > 1 ? 1 : 0).text());
        return texts.join(u',');
    }

    ScratchAddressBook book;
};

struct Query
{
    const char *name;
    const char *statement;
    const char *result;
};

struct QueryTest : StatementsTest, testing::WithParamInterface<Query>
{};

const Query queries[] = {
    {"TreeOfGroups", "Select * from groups order by groupName", "Default,Friends"},
    {"TreeOfCities", "Select * from City order by CityName", "..,Dover,\u00C9vry"},
    {"TreeOfStates", "Select * from State order by stateName", "..,Kent"},
    {"ListOfGroups", "select * from Groups ORDER BY GroupName", "Default,Friends"},
    {"ListOfCities", "select * from City ORDER BY CityName", "..,Dover,\u00C9vry"},
    {"ListOfStates", "select * from State ORDER BY StateName", "..,Kent"},
    {"ChoiceOfCities", "select CityName from city order by CityName", "..,Dover,\u00C9vry"},
    {"ChoiceOfStates", "select stateName from State order by stateName", "..,Kent"},
    {"ChoiceOfGroups", "select GroupName from groups order by GroupName", "Default,Friends"},
    {"EditedName", "select * from names where srno=1", "2"},
    {"EditedEMails", "Select * from EMails where srno=1", "1@x,1@y"},
    {"EditedHome", "Select * from Home where srno=1", "1 Road\r\nTown"},
    {"EditedBusiness", "Select * from Business where srno=1", ""},
    {"HomeStateOfReport",
     "Select State.StateName from State inner join (City inner join Home on City.CityID = Home.CityID) on "
     "State.StateID = City.StateID where (((Home.SrNo)=1))",
     "Kent"},
    {"WorkStateOfReport",
     "Select State.StateName from (State inner join City ON State.StateID = City.StateID) inner join "
     "Business on "
     "City.CityID = Business.CityID where (((Business.SrNo)=2))",
     "Kent"},
};

struct Filter
{
    const char *name;
    const char *base; ///< what is added to the statement of the contact view
    const char *filter;
    const char *result;
};

struct FilterTest : StatementsTest, testing::WithParamInterface<Filter>
{};

constexpr Filter filters[] = {
    {"All", "", "", "adam,Bea,Carl O'Neil"},
    {"Group", " and names.groupId=2", "", "Bea,Carl O'Neil"},
    {"State", " and Home.CityId in(select cityid from city where stateid=1)", "", "adam,Carl O'Neil"},
    {"City", " and City.CityId=2", "", "Bea"},
    {"Letter", "", " and Names.Name like 'A%'", "adam"},
    {"LetterInGroup", " and names.groupId=2", " and Names.Name like 'C%'", "Carl O'Neil"},
    {"Birthday", "", " and day(dtOfBirth) =5 and month(dtofBirth) =9", "Bea"},
    {"LeapDay", "", " and day(dtOfBirth) =29 and month(dtofBirth) =2", "adam"},
    {"DayBeforeTheLeapDay", "", " and day(dtOfBirth) =28 and month(dtofBirth) =2", ""},
    {"DayBehindTheLeapDay", "", " and day(dtOfBirth) =1 and month(dtofBirth) =3", ""},
};

} // namespace

TEST_P(QueryTest, GivesItsRows)
{
    EXPECT_EQ(seen(QString::fromUtf8(GetParam().statement)), QString::fromUtf8(GetParam().result));
}

INSTANTIATE_TEST_SUITE_P(Windows, QueryTest, testing::ValuesIn(queries), RowName());

TEST_P(FilterTest, GivesItsContactsByName)
{
    const QByteArray statement =
        QByteArray(contactsOfView) + GetParam().base + GetParam().filter + " order by Names.Name";
    EXPECT_EQ(seen(QString::fromUtf8(statement)), QString::fromUtf8(GetParam().result));
}

INSTANTIATE_TEST_SUITE_P(ContactView, FilterTest, testing::ValuesIn(filters), RowName());

TEST_F(StatementsTest, AContactWithoutItsHomeIsInNoView)
{
    execute("delete from Home where SrNo=1");
    EXPECT_EQ(seen(QString::fromUtf8(contactsOfView) + QStringLiteral(" order by Names.Name")),
              QStringLiteral("adam,Carl O'Neil"));
}

TEST_F(StatementsTest, TheViewShowsTheDateOfBirth)
{
    Recordset rows;
    rows.open(QString::fromUtf8(contactsOfView) + QStringLiteral(" order by Names.Name"), AddressConnection);
    EXPECT_EQ(rows.field(u"dtOfBirth").text(), QStringLiteral("29-Feb-1960"));
    rows.moveLast();
    EXPECT_TRUE(rows.field(u"dtOfBirth").isEmpty());
}

TEST_F(StatementsTest, AFilterWithoutAViewIsRefused)
{
    try {
        seen(QStringLiteral(" and Names.Name like 'B%' order by Names.Name"));
        FAIL();
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.description(), QStringLiteral("near \"and\": syntax error"));
    }
}

TEST_F(StatementsTest, TheCaptionsOfReferenceTablesAreTheirNamesForTheColumns)
{
    for (const auto &[table, caption] :
         {std::pair("Groups", "GroupID"), {"City", "CityID"}, {"State", "StateID"}}) {
        Recordset rows;
        rows.open(QStringLiteral("select * from ") + QLatin1String(table), AddressConnection);
        EXPECT_EQ(rows.fieldName(0), QLatin1String(caption));
    }
}

TEST_F(StatementsTest, ADeletedContactIsGone)
{
    execute("delete from names where srno=1");
    execute("Delete from Names where srno=2");
    EXPECT_EQ(book.rows(QStringLiteral("select Name from Names")),
              QStringList(QStringLiteral("Carl O'Neil")));
}

TEST_F(StatementsTest, AnEmptySelectionTakesNewRows)
{
    for (const char *table : {"Names", "EMails", "Home", "Business"}) {
        Recordset rows;
        rows.open(QStringLiteral("select * from %1 where srNo=0").arg(QLatin1String(table)),
                  AddressConnection, Recordset::Kind::Updatable);
        EXPECT_TRUE(rows.bof()) << table;
        rows.addNew();
    }
}

TEST_F(StatementsTest, ReferenceRowsAreAddedAndRenamed)
{
    execute(QStringLiteral("insert into city values(%1,'%2',%3)")
                .arg(QString::number(NextCityId()), QStringLiteral("Deal"),
                     QString::number(GetStateId(QStringLiteral("kent")))));
    execute(QStringLiteral("update city set CityName='%1', StateID=%2 where CityId=3")
                .arg(QStringLiteral("Hythe"), QString::number(GetStateId(QStringLiteral("Kent")))));
    execute(QStringLiteral("Insert into State values(%1,'%2')")
                .arg(NextStateId())
                .arg(QStringLiteral(" Devon ")));
    execute("update State set StateName='Wales' where StateId=2");
    execute(QStringLiteral("Insert into Groups values(%1,'%2')")
                .arg(NextGroupId())
                .arg(QStringLiteral("Family")));
    execute("update Groups set GroupName='Pals' where GroupId=2");
    EXPECT_EQ(book.rows(QStringLiteral("select * from City order by CityID")).join(u','),
              QStringLiteral("1|..|1,2|Dover|2,3|Hythe|2,4|Deal|2"));
    EXPECT_EQ(book.rows(QStringLiteral("select * from State order by StateID")).join(u','),
              QStringLiteral("1|..,2|Wales,3| Devon "));
    EXPECT_EQ(book.rows(QStringLiteral("select * from Groups order by GroupID")).join(u','),
              QStringLiteral("1|Default,2|Pals,3|Family"));
}

TEST_F(StatementsTest, TwoCitiesMayGetTheSameNameByARenaming)
{
    execute("update city set CityName='Dover', StateID=1 where CityId=3");
    EXPECT_EQ(seen(QStringLiteral("Select * from City order by CityName")), QStringLiteral("..,Dover,Dover"));
}

TEST_F(StatementsTest, AQuoteInARenamingIsRefusedAndRenamesNothing)
{
    for (const char *name :
         {"O'Brien", "x' where 1=1 or '", "x', GroupID=7 --", "x'; delete from Names; '"}) {
        const QString statement =
            QStringLiteral("update Groups set GroupName='%1' where GroupId=2").arg(QString::fromUtf8(name));
        EXPECT_THROW(execute(statement), RuntimeError) << name;
    }
    EXPECT_EQ(seen(QStringLiteral("Select * from groups order by groupName")),
              QStringLiteral("Default,Friends"));
    EXPECT_EQ(book.rows(QStringLiteral("select count(*) from Names")), QStringList(QStringLiteral("3")));
}

TEST_F(StatementsTest, BirthdaysAreTheSameInEveryTimeZone)
{
    const QByteArray before = qgetenv("TZ");
    for (const char *zone :
         {"Pacific/Auckland", "America/Los_Angeles", "Pacific/Kiritimati", "Europe/London"}) {
        qputenv("TZ", zone);
        ::tzset();
        addContact(10, "Zoe", 1, 1, "2000-12-31");
        addContact(11, "Zack", 1, 1, "1981-03-29"); // the clocks changed
        EXPECT_EQ(book.rows(QStringLiteral(
                      "select Name from Names where day(dtOfBirth) =31 and month(dtofBirth) =12")),
                  QStringList(QStringLiteral("Zoe")))
            << zone;
        EXPECT_EQ(DateText::show(*ContactRows::name(11).birthDate), QStringLiteral("29-Mar-1981")) << zone;
        ContactRows::remove(10);
        ContactRows::remove(11);
    }
    before.isNull() ? qunsetenv("TZ") : qputenv("TZ", before);
    ::tzset();
}
