#include "DailyCopies.h"

#include "AddressDatabase.h"
#include "Files.h"
#include "PrintQt.h"
#include "Recordset.h"
#include "RuntimeError.h"
#include "ScratchAddressBook.h"

#include <QDir>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

struct DailyCopiesTest : testing::Test
{
    static QStringList names() { return QDir(DailyCopies::folder()).entryList(QDir::Files); }
    static QString pathOf(QDate day)
    {
        return DailyCopies::folder() + QStringLiteral("/data97-%1.mdb").arg(day.toString(Qt::ISODate));
    }
    static QString namesIn(QDate day)
    {
        Connection copy;
        copy.open(pathOf(day));
        EXPECT_EQ(copy.damage(), QString());
        Recordset rows;
        QStringList texts;
        for (rows.open(QStringLiteral("select Name from Names order by Name"), copy); !rows.eof();
             rows.moveNext())
            texts.append(rows.field(0).text());
        return texts.join(u' ');
    }

    ScratchAddressBook book;
    QDate today = QDate::currentDate();
};

} // namespace

TEST_F(DailyCopiesTest, OpeningTheAddressBookMakesOne)
{
    EXPECT_EQ(names().size(), 1);
    EXPECT_TRUE(DailyCopies::any());
    EXPECT_EQ(namesIn(today), QString());
    struct stat state = {};
    ASSERT_EQ(::stat(DailyCopies::folder().toUtf8().constData(), &state), 0);
    EXPECT_EQ(state.st_mode & 0777, 0700u);
}

TEST_F(DailyCopiesTest, TheFirstOfADayIsKept)
{
    ScratchAddressBook::addContact(QStringLiteral("Ann"));
    OpenAddressDatabase();
    EXPECT_EQ(namesIn(today), QString());
    DailyCopies::make(AddressConnection, today.addDays(1));
    EXPECT_EQ(namesIn(today.addDays(1)), QStringLiteral("Ann"));
    EXPECT_EQ(namesIn(today), QString());
}

TEST_F(DailyCopiesTest, SevenAreKept)
{
    for (int day = 1; day <= 9; ++day)
        DailyCopies::make(AddressConnection, today.addDays(day * 20));
    EXPECT_EQ(names().size(), 7);
    EXPECT_FALSE(QFile::exists(pathOf(today.addDays(40))));
    for (int day = 3; day <= 9; ++day)
        EXPECT_TRUE(QFile::exists(pathOf(today.addDays(day * 20)))) << day;
}

TEST_F(DailyCopiesTest, ThoseOfAClockThatWasAheadGoFirst)
{
    for (int day = 1; day <= 9; ++day)
        DailyCopies::make(AddressConnection, today.addDays(3650 + day));
    const QDate later = today.addDays(1);
    DailyCopies::make(AddressConnection, later);
    EXPECT_EQ(names().size(), 7);
    EXPECT_TRUE(QFile::exists(pathOf(later)));
    DailyCopies::make(AddressConnection, later.addDays(1));
    EXPECT_EQ(names().size(), 7);
    EXPECT_TRUE(QFile::exists(pathOf(later)));
    EXPECT_TRUE(QFile::exists(pathOf(later.addDays(1))));
}

TEST_F(DailyCopiesTest, OtherFilesAreLeftAlone)
{
    const QStringList own = {QStringLiteral("mine.txt"), QStringLiteral("data97-2026 keep.mdb"),
                             QStringLiteral("data97-1999-01-01 old.mdb")};
    for (const QString &name : own)
        Files::write(DailyCopies::folder() + u'/' + name, "x");
    for (int day = 1; day <= 9; ++day)
        DailyCopies::make(AddressConnection, today.addDays(day));
    EXPECT_EQ(names().size(), 7 + own.size());
    for (const QString &name : own)
        EXPECT_TRUE(names().contains(name)) << name.toStdString();
}

TEST_F(DailyCopiesTest, HalfACopyIsNoCopy)
{
    Files::write(DailyCopies::folder() + QStringLiteral("/unfinished.mdb"), QByteArray(3000, 'x'));
    ScratchAddressBook::addContact(QStringLiteral("Ann"));
    DailyCopies::make(AddressConnection, today.addDays(1));
    EXPECT_EQ(namesIn(today.addDays(1)), QStringLiteral("Ann"));
    EXPECT_EQ(names().size(), 2);
}

TEST_F(DailyCopiesTest, AFailureIsNotShownAndLosesNoCopy)
{
    ASSERT_TRUE(QDir().mkpath(DailyCopies::folder() + QStringLiteral("/unfinished.mdb")));
    DailyCopies::make(AddressConnection, today.addDays(1));
    EXPECT_EQ(names().size(), 1);
    OpenAddressDatabase();
    EXPECT_EQ(ScratchAddressBook::addContact(QStringLiteral("Ann")), 1);
}

TEST_F(DailyCopiesTest, ADamagedDatabaseIsNotCopied)
{
    QFile::remove(pathOf(today));
    for (int i = 0; i < 100; ++i)
        ScratchAddressBook::addContact(QString(50, u'a'));
    AddressConnection.close();
    QByteArray bytes = Files::read(book.path());
    bytes.replace(bytes.size() - 4096, 4096, QByteArray(4096, '\x7F'));
    Files::write(book.path(), bytes);
    EXPECT_THROW(OpenAddressDatabase(), RuntimeError);
    EXPECT_EQ(names(), QStringList());
}
