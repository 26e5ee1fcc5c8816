#include "ContactPrinter.h"
#include "CsvReader.h"
#include "ErrorNumberOf.h"
#include "SampleFile.h"

#include <gtest/gtest.h>

namespace {

QString words(const char *text)
{
    return QString::fromUtf8(text);
}

} // namespace

TEST(CsvReader, ReadsTheFileOfAMailProgram)
{
    const ContactList list = CsvReader::read(sampleFile("mail-program.csv"));
    ASSERT_EQ(list.contacts.size(), 2);
    EXPECT_EQ(list.contacts[0],
              (Contact{
                  .name = words("Lee, Ann"),
                  .nickName = words("Annie"),
                  .comment = words("two\nlines, \"quoted\""),
                  .eMails = {words("ann@example.org"), words("a.lee@example.net")},
                  .home = {words("1 Road\nFlat 2\nUK"), words("Dover"), words("Kent"), words("CT16")},
                  .homePhone1 = words("12"),
                  .homeMobile = words("15"),
                  .work = {words("2 Lane"), words("Deal"), words("Kent"), words("CT14")},
                  .workPhone1 = words("11"),
                  .workFax = words("13"),
                  .workMobile = words("14"),
                  .company = words("Works"),
                  .post = words("Head"),
                  .department = words("Sales"),
              }));
    EXPECT_EQ(list.contacts[1], (Contact{.name = words("Bob Ray"), .eMails = {words("bob@example.org")}}));
}

TEST(CsvReader, ReadsTheFileOfAnOffice)
{
    const ContactList list = CsvReader::read(sampleFile("office.csv"));
    ASSERT_EQ(list.contacts.size(), 3);
    EXPECT_EQ(list.contacts[0],
              (Contact{
                  .salutation = words("Mr."),
                  .name = words("Jo K. Low"),
                  .group = words("Friends"),
                  .comment = words("=1+1"),
                  .birthDate = QDate(1980, 9, 23),
                  .eMails = {words("jo@example.org"), words("low@example.org")},
                  .home = {words("2 Way"), words("York"), {}, words("YO1")},
                  .homePhone1 = words("34"),
                  .homePhone2 = words("35"),
                  .homeMobile = words("36"),
                  .work = {words("1 Way\nUnited Kingdom"), words("Leeds"), {}, words("LS1")},
                  .workPhone1 = words("32"),
                  .workPhone2 = words("33"),
                  .workFax = words("31"),
                  .workMobile = words("37"),
                  .company = words("Low Ltd"),
                  .post = words("Boss"),
                  .department = words("IT"),
              }));
    EXPECT_EQ(list.remarks, QStringList(words("Sue Fox: \"5/9/1980\" is no clear birth date.")));
}

TEST(CsvReader, ReadsTheFileOfAWebMail)
{
    const ContactList list = CsvReader::read(sampleFile("web-mail.csv"));
    ASSERT_EQ(list.contacts.size(), 2);
    EXPECT_EQ(list.contacts[0], (Contact{
                                    .name = words("Max Kim"),
                                    .group = words("Friends"),
                                    .comment = words("hello"),
                                    .birthDate = QDate(1985, 7, 1),
                                    .eMails = {words("max@example.org"), words("kim@example.org")},
                                    .homeMobile = words("+1 1"),
                                    .work = {words("5 St\nUS"), words("Reno"), words("NV"), words("89501")},
                                    .workPhone1 = words("+1 3"),
                                    .workPhone2 = words("+1 4"),
                                    .workFax = words("+1 2"),
                                    .company = words("Acme"),
                                    .post = words("Clerk"),
                                }));
    EXPECT_EQ(list.contacts[1], (Contact{.name = words("Yearless"), .birthDate = QDate(1604, 2, 29)}));
}

TEST(CsvReader, ReadsTheDatesOfSeveralCountries)
{
    const auto born = [](const QByteArray &date) {
        return CsvReader::read("Name,Birthday\nx," + date).contacts.value(0).birthDate;
    };
    EXPECT_EQ(born("5.9.1999"), QDate(1999, 9, 5));
    EXPECT_EQ(born("5-Sep-1999"), QDate(1999, 9, 5));
    EXPECT_EQ(born("9/23/1999"), QDate(1999, 9, 23));
    EXPECT_EQ(born("23/9/1999"), QDate(1999, 9, 23));
    EXPECT_EQ(born("9/9/1999"), QDate(1999, 9, 9));
    for (const char *unclear : {"5/9/1999", "31.4.1999", "5.9.99", "5.9/1999", "soon"})
        EXPECT_EQ(born(unclear), std::nullopt) << unclear;
}

TEST(CsvReader, ReadsWindows1252AndUtf16)
{
    EXPECT_EQ(CsvReader::read("Name\nCaf\xE9").contacts.value(0).name, words("Caf\u00E9"));
    const QString text = QStringLiteral("Name\nCaf\u00E9");
    const QByteArray utf16 =
        "\xFF\xFE" + QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
    EXPECT_EQ(CsvReader::read(utf16).contacts.value(0).name, words("Caf\u00E9"));
}

TEST(CsvReader, RefusesAFileWithoutKnownCaptions)
{
    for (const char *bytes : {"", "\n", "a,b\nc,d", "Price,Amount\n1,2"})
        EXPECT_EQ(errorNumberOf([&] { CsvReader::read(bytes); }), ErrorNumber::InvalidFileFormat) << bytes;
}

TEST(CsvReader, RowsMayBeShorterOrLongerThanTheCaptions)
{
    const ContactList list = CsvReader::read("Name,Company\nx\ny,z,more,and more\n,");
    ASSERT_EQ(list.contacts.size(), 2);
    EXPECT_EQ(list.contacts[1], (Contact{.name = words("y"), .company = words("z")}));
    EXPECT_EQ(list.remarks.size(), 1);
}

TEST(CsvReader, LargeFilesTakeTimeInProportion)
{
    EXPECT_EQ(CsvReader::read("Name\n" + QByteArray("x\n").repeated(20'000)).contacts.size(), 20'000);
    EXPECT_EQ(CsvReader::read("Name,Notes\nx,\"" + QByteArray(1'000'000, 'x') + '"').contacts.size(), 1);
    EXPECT_EQ(CsvReader::read("Name" + QByteArray(",").repeated(100'000) + "\nx").contacts.size(), 1);
    EXPECT_EQ(CsvReader::read("Name,E-Mail 9999\nx,y").contacts.value(0).eMails, QStringList(words("y")));
}
