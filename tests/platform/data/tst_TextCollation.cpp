#include "HostileNames.h"
#include "ScratchDatabase.h"

namespace {

struct TextCollationTest : ScratchDatabase
{
    TextCollationTest() { execute("create table T(name text collate LOCALE_TEXT)"); }

    void add(const QStringList &names)
    {
        for (const QString &name : names) {
            Recordset rows;
            rows.open(QStringLiteral("select name from T"), connection, Recordset::Kind::Updatable);
            rows.addNew();
            rows.setField(u"name", name);
            rows.update();
        }
    }
    int found(const char *name)
    {
        return int(
            column(QStringLiteral("select name from T where name='%1'").arg(QString::fromUtf8(name))).size());
    }
};

} // namespace

TEST_F(TextCollationTest, CaseDoesNotCountAndAccentsDo)
{
    add({QStringLiteral("\u00C9lancourt")});
    EXPECT_EQ(found("\u00E9LANCOURT"), 1);
    EXPECT_EQ(found("Elancourt"), 0);
}

TEST_F(TextCollationTest, OrdersAsALanguageDoes)
{
    add({QStringLiteral("Zagreb"), QStringLiteral("\u00C9vry"), QStringLiteral("eton"),
         QStringLiteral("\u00C9lancourt"), QStringLiteral("Fez")});
    EXPECT_EQ(column("select name from T order by name").join(u' '),
              QStringLiteral("\u00C9lancourt eton \u00C9vry Fez Zagreb"));
}

TEST_F(TextCollationTest, ThePlaceholderIsFirst)
{
    add({QStringLiteral("-"), QStringLiteral("_"), QStringLiteral("..."), QStringLiteral(".."), QString(),
         QStringLiteral("."), QStringLiteral(" ")});
    EXPECT_EQ(column("select name from T order by name").value(0), QStringLiteral(".."));
    EXPECT_EQ(found(".."), 1);
}

TEST_F(TextCollationTest, TheOrderIsTheSameFromEverySide)
{
    QStringList names = {QStringLiteral(".."), QString()};
    for (const HostileName &name : HostileNames::texts())
        names.append(name.text());
    add(names);
    // For each pair exactly one of "less", "equal" and "greater" holds, and turned round the opposite.
    EXPECT_EQ(column("select count(*) from T a, T b where (a.name < b.name) + (a.name = b.name) + (a.name > "
                     "b.name) <> 1 "
                     "or (a.name < b.name) <> (b.name > a.name)"),
              QStringList(QStringLiteral("0")));
}
