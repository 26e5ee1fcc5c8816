#include "DateText.h"
#include "PrintQt.h"

#include <QLocale>
#include <gtest/gtest.h>

namespace {

QString read(const char *text)
{
    const auto date = DateText::parse(QString::fromUtf8(text));
    return date ? DateText::store(*date) : QStringLiteral("none");
}

} // namespace

TEST(DateText, ReadsNamedMonthsInAnyCase)
{
    EXPECT_EQ(read("05-Sep-1999"), QStringLiteral("1999-09-05"));
    EXPECT_EQ(read("5-sep-1999"), QStringLiteral("1999-09-05"));
    EXPECT_EQ(read("05-SEP-1999"), QStringLiteral("1999-09-05"));
    EXPECT_EQ(read(" 31-Dec-2000 "), QStringLiteral("2000-12-31"));
}

TEST(DateText, ReadsIsoDates)
{
    EXPECT_EQ(read("1999-09-05"), QStringLiteral("1999-09-05"));
    EXPECT_EQ(read("2000-02-29"), QStringLiteral("2000-02-29"));
}

TEST(DateText, RefusesDaysThatDoNotExist)
{
    for (const char *text : {"31-Apr-2000", "29-Feb-2001", "2001-02-29", "0-Jan-2000", "2000-13-01",
                             "2000-00-10", "1-Foo-2000", "0000-01-01"})
        EXPECT_EQ(read(text), QStringLiteral("none")) << text;
}

TEST(DateText, RefusesTextsThatAreNoDates)
{
    for (const char *text :
         {"", "x", "5/9/1999", "5-Sep-99", "5-Sept-1999", "05-Sep.-1999", "1999-9-5", "19990905",
          "5-Sep-1999 10:00", "5-Sep-19990", "1999/09/05", "-5-Sep-1999", "\xD9\xA5-Sep-1999"})
        EXPECT_EQ(read(text), QStringLiteral("none")) << text;
}

TEST(DateText, SkipsTheTimeOfAStoredDate)
{
    EXPECT_EQ(DateText::parseStored(QStringLiteral("1999-09-05 23:59:59")), QDate(1999, 9, 5));
    EXPECT_EQ(DateText::parseStored(QStringLiteral("1999-09-05T00:00")), QDate(1999, 9, 5));
    EXPECT_EQ(DateText::parseStored(QStringLiteral("1999-09-05")), QDate(1999, 9, 5));
    EXPECT_EQ(DateText::parseStored(QStringLiteral("1999-09-051")), std::nullopt);
}

TEST(DateText, ReadsTheBytesOfAStoredDateAsItsText)
{
    for (const char *text : {"1999-09-05", "1999-09-05 23:59:59", "1999-09-05T00:00", "5-Sep-1999"})
        EXPECT_EQ(DateText::parseStored(QByteArrayView(text)), QDate(1999, 9, 5)) << text;
    for (const char *text : {"", "1999-09-051", "1999-13-05", "1999-09-\xC3\xA9", "\xB1\xB9\xB9\xB9-09-05"})
        EXPECT_EQ(DateText::parseStored(QByteArrayView(text)), std::nullopt) << text;
}

TEST(DateText, ShowsEnglishMonthsInEveryLocale)
{
    QLocale::setDefault(QLocale(QLocale::German));
    EXPECT_EQ(DateText::show({1999, 9, 5}), QStringLiteral("05-Sep-1999"));
    EXPECT_EQ(DateText::show({812, 5, 1}), QStringLiteral("01-May-0812"));
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    for (int month = 1; month <= 12; ++month) {
        const QDate date(2024, month, 29);
        EXPECT_EQ(DateText::parse(DateText::show(date)), date);
    }
    QLocale::setDefault(QLocale::system());
}
