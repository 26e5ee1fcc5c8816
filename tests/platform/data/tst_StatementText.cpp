#include "DataError.h"
#include "HostileNames.h"
#include "RowName.h"
#include "ScratchDatabase.h"
#include "StatementText.h"

#include <QFile>

namespace {

struct StatementTextTest : ScratchDatabase
{
    StatementTextTest()
    {
        execute("create table T(id integer primary key, name text)");
        execute("insert into T values(1, 'Paris')");
    }
    QString select(const QString &name)
    {
        return errorOf([&] { column(QStringLiteral("select id from T where name='") + name + u'\''); });
    }
    QString insert(const QString &name)
    {
        return errorOf([&] {
            connection.execute(QStringLiteral("insert into T values(2,'") + name + QStringLiteral("')"));
        });
    }
    QString whatIsThere() { return column("select name from T order by id").join(u'|'); }
};

struct HostileStatement
{
    const char *name;
    const char *text;
    const char *error;
};

struct HostileStatementTest : StatementTextTest, testing::WithParamInterface<HostileStatement>
{};

constexpr HostileStatement hostile[] = {
    {"Apostrophe", "O'Brien", "near \"Brien\": syntax error"},
    {"OneQuote", "'", "unrecognized token: \"'''\""},
    {"CommentBehindAQuote", "x'--", "comment in the statement"},
    {"LongComment", "x'/*", "comment in the statement"},
    {"SecondStatement", "x'; drop table T; select '", "characters found after the end of the statement"},
    {"SecondStatementAndComment", "x');drop table T--", "comment in the statement"},
};

} // namespace

TEST_P(HostileStatementTest, IsRefusedAndChangesNothing)
{
    const QString expected = QStringLiteral("-2147217900 ") + QLatin1String(GetParam().error);
    EXPECT_EQ(select(QString::fromUtf8(GetParam().text)), expected);
    EXPECT_EQ(whatIsThere(), QStringLiteral("Paris"));
}

INSTANTIATE_TEST_SUITE_P(Texts, HostileStatementTest, testing::ValuesIn(hostile), RowName());

TEST_F(StatementTextTest, SignsInsideQuotesArePlainText)
{
    for (const char *text : {"a -- b", "/* c */", "a;b", "\"", "100%_[x]*?#", "''quoted''", "-", "{}\\"}) {
        const QString name = QString::fromUtf8(text);
        EXPECT_EQ(insert(name), QStringLiteral("none")) << text;
        EXPECT_EQ(column("select name from T where id=2"),
                  QStringList(QString(name).replace(QLatin1String("''"), QLatin1String("'"))));
        execute("delete from T where id=2");
    }
}

TEST_F(StatementTextTest, ATextInDoubleQuotesIsAName)
{
    EXPECT_EQ(errorOf([&] { column("select id from T where name=\"Paris\""); }),
              QStringLiteral("-2147217900 no such column: Paris"));
    EXPECT_EQ(column("select \"id\" from T"), QStringList(QStringLiteral("1")));
}

TEST_F(StatementTextTest, ANulIsRefused)
{
    EXPECT_EQ(select(QStringLiteral("Paris'") + QChar(u'\0')),
              QStringLiteral("-2147217900 NUL character in the statement"));
}

TEST_F(StatementTextTest, AnEmptyStatementIsRefused)
{
    for (const char *text : {"", "  \n", ";"})
        EXPECT_EQ(errorOf([&] { execute(text); }),
                  QStringLiteral("-2147217908 Command text was not set for the command object."));
}

TEST_F(StatementTextTest, SemicolonsAtTheEndAreAllowed)
{
    EXPECT_EQ(column("select id from T ; ;"), QStringList(QStringLiteral("1")));
}

TEST_F(StatementTextTest, TheEngineReachesNoOtherFile)
{
    const QString other = QString::fromUtf8(folder.file("b.db"));
    for (const char *text : {"attach '%1' as b", "vacuum into '%1'", "select load_extension('%1')"}) {
        const QString statement = QString::fromUtf8(text).arg(other);
        EXPECT_NE(errorOf([&] { connection.execute(statement); }), QStringLiteral("none")) << text;
    }
    EXPECT_FALSE(QFile::exists(other));
}

TEST_F(StatementTextTest, ALongOrDeepStatementIsRefused)
{
    EXPECT_EQ(insert(QString(2'000'000, u'x')), QStringLiteral("-2147467259 string or blob too big"));
    const QString deep = QString(500, u'(') + u'1' + QString(500, u')');
    EXPECT_NE(errorOf([&] { column(QStringLiteral("select ") + deep); }), QStringLiteral("none"));
}

struct HostileNameInStatementTest : StatementTextTest, testing::WithParamInterface<HostileName>
{};

TEST_P(HostileNameInStatementTest, IsStoredAsItIs)
{
    const QString name = GetParam().text();
    EXPECT_EQ(insert(name), QStringLiteral("none"));
    EXPECT_EQ(column("select name from T where id=2"), QStringList(name));
}

INSTANTIATE_TEST_SUITE_P(Names, HostileNameInStatementTest, testing::ValuesIn(HostileNames::texts()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);

TEST(LastNumber, IsAParameterOfAQuery)
{
    const auto plain = StatementText::lastNumber(QStringLiteral("Select * from Home where srno=47"));
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->value, 47);
    EXPECT_EQ(plain->text, QStringLiteral("Select * from Home where srno=?"));
    const auto inBrackets =
        StatementText::lastNumber(QStringLiteral("select a from t WHERE a=1 and (((t.b)=9007199254740993))"));
    ASSERT_TRUE(inBrackets);
    EXPECT_EQ(inBrackets->value, 9007199254740993);
    EXPECT_EQ(inBrackets->text, QStringLiteral("select a from t WHERE a=1 and (((t.b)=?))"));
}

struct WithoutLastNumberTest : testing::TestWithParam<const char *>
{};

TEST_P(WithoutLastNumberTest, StaysAsItIs)
{
    EXPECT_FALSE(StatementText::lastNumber(QString::fromUtf8(GetParam())));
}

INSTANTIATE_TEST_SUITE_P(
    Statements, WithoutLastNumberTest,
    testing::Values("", "select * from t", "select 5", "select a=5", "delete from t where a=5",
                    "select a from t where b='x' and a=5", "select a from t where b=? and a=5",
                    "select a from t where a=", "select a from t where a=b5", "select a from t where a=-5",
                    "select a from t where a<5", "select a from t where a=0x5",
                    "select a from t where a=9999999999999999999", "select a from t where a=5 order by a",
                    "select (select a from t where a=5)", "select a from t where "));

TEST_F(StatementTextTest, QueriesThatDifferInTheirLastNumberFindTheirOwnRows)
{
    execute("insert into T values(2, 'Rome')");
    EXPECT_EQ(column("select name from T where id=1"), QStringList(QStringLiteral("Paris")));
    EXPECT_EQ(column("select name from T where id=2"), QStringList(QStringLiteral("Rome")));
    EXPECT_EQ(column("select name from T where id=3"), QStringList());
    EXPECT_EQ(column("select name from T where ((id)=1)"), QStringList(QStringLiteral("Paris")));
}

TEST_F(StatementTextTest, AnErrorTellsTheNumberAsItWasGiven)
{
    try {
        column("select none from T where id=47");
        FAIL();
    } catch (const RuntimeError &error) {
        EXPECT_TRUE(error.source().contains(QStringLiteral("id=47")));
    }
}
