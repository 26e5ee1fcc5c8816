#include "Recordset.h"

#include "DataError.h"
#include "ErrorNumberOf.h"
#include "ScratchDatabase.h"

namespace {

struct RecordsetTest : ScratchDatabase
{
    RecordsetTest()
    {
        execute("create table People(PersonID integer primary key check(PersonID between 0 and 255), "
                "FullName text not null, Born datetime, Height real)");
        execute("insert into People values(3,'Cy',null,1.5), (1,'','1999-09-05',2), (2,'Bo','2000-02-29 "
                "10:00:00',null)");
    }
    void open(const char *statement, Recordset::Kind kind = Recordset::Kind::Default)
    {
        rows.open(QString::fromUtf8(statement), connection, kind);
    }
    void openAll(Recordset::Kind kind = Recordset::Kind::Default)
    {
        open("select * from People order by PersonID", kind);
    }

    Recordset rows;
};

constexpr auto updatable = Recordset::Kind::Updatable;

} // namespace

TEST_F(RecordsetTest, IsWalkedFromTheFirstRowToTheLast)
{
    QStringList names;
    for (openAll(); !rows.eof(); rows.moveNext())
        names.append(rows.field(u"FullName").text());
    EXPECT_EQ(names.join(u','), QStringLiteral(",Bo,Cy"));
    EXPECT_FALSE(rows.bof());
}

TEST_F(RecordsetTest, BofMeansThatThereIsNoRow)
{
    open("select * from People where PersonID=9");
    EXPECT_TRUE(rows.bof());
    EXPECT_TRUE(rows.eof());
    EXPECT_EQ(errorNumberOf([&] { rows.moveNext(); }), DataError::NoCurrentRow);
    EXPECT_EQ(errorNumberOf([&] { rows.moveLast(); }), DataError::NoCurrentRow);
    EXPECT_EQ(errorNumberOf([&] { rows.field(0); }), DataError::NoCurrentRow);
}

TEST_F(RecordsetTest, NothingIsReadBehindTheLastRow)
{
    openAll();
    rows.moveLast();
    EXPECT_EQ(rows.field(0).number(), 3);
    rows.moveNext();
    EXPECT_TRUE(rows.eof());
    EXPECT_EQ(
        errorOf([&] { rows.field(0); }),
        QStringLiteral("3021 Either BOF or EOF is True, or the current record has been deleted. Requested "
                       "operation requires a current record."));
    EXPECT_EQ(errorNumberOf([&] { rows.moveNext(); }), DataError::NoCurrentRow);
}

TEST_F(RecordsetTest, FieldsAreFoundByPositionAndByNameWithoutCase)
{
    openAll();
    EXPECT_EQ(rows.field(u"personid"), rows.field(0));
    EXPECT_EQ(rows.field(u"BORN"), rows.field(2));
    for (const int wrong : {-1, 4})
        EXPECT_EQ(errorNumberOf([&] { rows.field(wrong); }), DataError::NoSuchField);
    EXPECT_EQ(
        errorOf([&] { rows.field(u"Age"); }),
        QStringLiteral("3265 Item cannot be found in the collection corresponding to the requested name or "
                       "ordinal."));
}

TEST_F(RecordsetTest, NamesAreSpelledAsTheTableDoes)
{
    open("select personid, FULLNAME, count(*) from people");
    EXPECT_EQ(rows.fieldCount(), 3);
    EXPECT_EQ(rows.fieldName(0), QStringLiteral("PersonID"));
    EXPECT_EQ(rows.fieldName(1), QStringLiteral("FullName"));
    EXPECT_EQ(rows.fieldName(2), QStringLiteral("count(*)"));
    EXPECT_EQ(errorNumberOf([&] { rows.fieldName(3); }), DataError::NoSuchField);
}

TEST_F(RecordsetTest, ValuesKeepTheirKinds)
{
    openAll();
    EXPECT_EQ(rows.field(1), FieldValue(QString()));
    EXPECT_EQ(rows.field(2), FieldValue(QDate(1999, 9, 5)));
    EXPECT_EQ(rows.field(3), FieldValue(2.0));
    rows.moveNext();
    EXPECT_EQ(rows.field(2), FieldValue(QDate(2000, 2, 29)));
    EXPECT_EQ(rows.field(3), FieldValue());
    rows.moveNext();
    EXPECT_TRUE(rows.field(2).isNull());
}

TEST_F(RecordsetTest, HoldsNoLockAndSeesNoLaterChange)
{
    openAll();
    Connection other;
    other.open(path());
    other.execute(QStringLiteral("delete from People"));
    rows.moveLast();
    EXPECT_EQ(rows.field(1).text(), QStringLiteral("Cy"));
}

TEST_F(RecordsetTest, AddsARowOfTheFieldsThatWereSet)
{
    openAll(updatable);
    rows.addNew();
    rows.setField(u"personID", 4);
    rows.setField(u"FullName", QStringLiteral("O'Brien \"x\" -- ;"));
    rows.setField(u"Born", QStringLiteral("05-Sep-1980"));
    EXPECT_EQ(rows.field(0).number(), 4);
    rows.update();
    EXPECT_EQ(rows.field(u"FullName").text(), QStringLiteral("O'Brien \"x\" -- ;"));
    rows.moveNext();
    EXPECT_TRUE(rows.eof());
    EXPECT_EQ(column("select FullName || Born from People where PersonID=4"),
              QStringList(QStringLiteral("O'Brien \"x\" -- ;1980-09-05")));
    EXPECT_EQ(column("select Height from People where PersonID=4"), QStringList(QStringLiteral("NULL")));
}

TEST_F(RecordsetTest, AddsToASelectionWithoutRows)
{
    open("select * from People where PersonID=0", updatable);
    for (const int id : {7, 8}) {
        rows.addNew();
        rows.setField(u"PersonID", id);
        rows.setField(u"FullName", QString());
        rows.update();
    }
    EXPECT_EQ(column("select count(*) from People"), QStringList(QStringLiteral("5")));
    rows.close();
    EXPECT_FALSE(rows.isOpen());
}

TEST_F(RecordsetTest, ARefusedRowLeavesTheTableUnchanged)
{
    openAll(updatable);
    rows.addNew();
    rows.setField(u"PersonID", 256);
    rows.setField(u"FullName", QStringLiteral("x"));
    EXPECT_EQ(errorOf([&] { rows.update(); }),
              QStringLiteral("-2147467259 CHECK constraint failed: PersonID between 0 and 255"));
    rows.setField(u"PersonID", 3);
    EXPECT_EQ(errorOf([&] { rows.update(); }),
              QStringLiteral("-2147467259 UNIQUE constraint failed: People.PersonID"));
    rows.setField(u"PersonID", 255);
    rows.setField(u"FullName", {});
    EXPECT_EQ(errorOf([&] { rows.update(); }),
              QStringLiteral("-2147467259 NOT NULL constraint failed: People.FullName"));
    EXPECT_EQ(column("select count(*) from People"), QStringList(QStringLiteral("3")));
    rows.setField(u"FullName", QStringLiteral("x"));
    rows.update();
    EXPECT_EQ(column("select count(*) from People"), QStringList(QStringLiteral("4")));
}

TEST_F(RecordsetTest, ATextThatIsNoDateIsRefused)
{
    openAll(updatable);
    rows.addNew();
    EXPECT_EQ(errorNumberOf([&] { rows.setField(u"Born", QStringLiteral("31-Apr-2000")); }),
              ErrorNumber::TypeMismatch);
    EXPECT_TRUE(rows.field(u"Born").isNull());
}

TEST_F(RecordsetTest, OnlyAnUpdatableOneOfOneTableAddsRows)
{
    openAll();
    EXPECT_EQ(errorNumberOf([&] { rows.addNew(); }), DataError::NotUpdatable);
    for (const char *statement : {"select 1", "select PersonID+1 from People",
                                  "select a.PersonID, m.name from People a, sqlite_master m"}) {
        Recordset other;
        other.open(QString::fromUtf8(statement), connection, updatable);
        EXPECT_EQ(errorNumberOf([&] { other.addNew(); }), DataError::NotUpdatable) << statement;
    }
}

TEST_F(RecordsetTest, StepsOutOfOrderAreRefused)
{
    EXPECT_EQ(errorNumberOf([&] { rows.close(); }), DataError::Closed);
    EXPECT_EQ(errorNumberOf([&] { rows.eof(); }), DataError::Closed);
    EXPECT_EQ(errorNumberOf([&] { rows.addNew(); }), DataError::Closed);
    openAll(updatable);
    EXPECT_EQ(errorNumberOf([&] { openAll(); }), DataError::AlreadyOpen);
    EXPECT_EQ(errorNumberOf([&] { rows.setField(u"FullName", QString()); }), DataError::WrongMoment);
    EXPECT_EQ(errorNumberOf([&] { rows.update(); }), DataError::WrongMoment);
    rows.addNew();
    EXPECT_EQ(errorNumberOf([&] { rows.close(); }), DataError::WrongMoment);
}

TEST_F(RecordsetTest, AFailedOpenLeavesItClosed)
{
    EXPECT_EQ(errorOf([&] { open("select * from Nobody"); }),
              QStringLiteral("-2147217900 no such table: Nobody"));
    EXPECT_FALSE(rows.isOpen());
}

TEST_F(RecordsetTest, TheSameStatementReadsATableThatHasChanged)
{
    openAll();
    rows.close();
    Connection other;
    other.open(path());
    other.execute(QStringLiteral("alter table People add column Nick text not null default 'none'"));
    openAll();
    EXPECT_EQ(rows.fieldCount(), 5);
    EXPECT_EQ(rows.field(u"Nick").text(), QStringLiteral("none"));
}

TEST_F(RecordsetTest, CanBeOpenedAgainAfterItIsClosed)
{
    openAll();
    rows.moveLast();
    rows.close();
    openAll();
    EXPECT_EQ(rows.field(0).number(), 1);
}
