#include "PrintQt.h"
#include "ReportRecord.h"
#include "RowName.h"
#include "SummaryTable.h"

#include <gtest/gtest.h>

namespace {

/// A value and what its column has, whose end is marked by the next column's tab.
struct Fit
{
    const char *name; ///< of the test
    QString ReportRecord::*field;
    const char *value;
    const char *column;
};

const Fit fits[] = {
    {"ShortName", &ReportRecord::name, "Ann", "\\par Ann                      \\tab "},
    {"NameOf25", &ReportRecord::name, "abcdefghijklmnopqrstuvwxy", "\\par abcdefghijklmnopqrstuvwxy\\tab "},
    {"NameOf30", &ReportRecord::name, "abcdefghijklmnopqrstuvwxyz1234",
     "\\par abcdefghijklmnopqrstuvwxy\\tab "},
    {"NoAddress", &ReportRecord::homeAddress, "", "\\tab                     \\tab "},
    {"AddressOf19", &ReportRecord::homeAddress, "abcdefghijklmnopqrs", "\\tab abcdefghijklmnopqrs \\tab "},
    {"AddressOf20", &ReportRecord::homeAddress, "abcdefghijklmnopqrst", "\\tab abcdefghijklmnopqrst..\\tab "},
    {"AddressOf21", &ReportRecord::homeAddress, "abcdefghijklmnopqrstu",
     "\\tab abcdefghijklmnopqrst..\\tab "},
    {"CityOf14", &ReportRecord::homeCity, "abcdefghijklmn", "\\tab abcdefghijklmn \\tab H:"},
    {"CityOf16", &ReportRecord::homeCity, "abcdefghijklmnop", "\\tab abcdefghijklmno\\tab H:"},
    {"HomeOf11", &ReportRecord::homePhones, "12345678901", "\\tab H:12345678901 \\tab M:"},
    {"HomeOf13", &ReportRecord::homePhones, "1234567890123", "\\tab H:123456789012\\tab M:"},
    {"MobileOf1", &ReportRecord::homeMobile, "1", "\\tab M:1           \\tab W:"},
    {"MobileOf13", &ReportRecord::homeMobile, "1234567890123", "\\tab M:123456789012\\tab W:"},
    {"WorkOf0", &ReportRecord::workPhones, "", "\\tab W:            \r\n"},
    {"WorkOf13", &ReportRecord::workPhones, "1234567890123", "\\tab W:123456789012\r\n"},
    {"WhatIsOfADocument", &ReportRecord::name, "%1 {\\b }", "\\par {%1 {\\b }                 }\\tab "},
    {"MarkupThatIsCut", &ReportRecord::homeAddress, "12345678901234567{\\b 1}",
     "\\tab {12345678901234567{\\b}}..\\tab "},
    {"BraceInACity", &ReportRecord::homeCity, "a}", "\\tab {{a}             }\\tab H:"},
    {"BraceInATelephone", &ReportRecord::homePhones, "1{", "\\tab H:{1{          }}\\tab M:"},
    {"BraceInAMobile", &ReportRecord::homeMobile, "1{", "\\tab M:{1{          }}\\tab W:"},
    {"BraceInAWorkTelephone", &ReportRecord::workPhones, "1{", "\\tab W:{1{          }}\r\n"},
};

struct SummaryTableFit : testing::TestWithParam<Fit>
{};

} // namespace

TEST_P(SummaryTableFit, IsCutOrFilledUp)
{
    ReportRecord contact;
    contact.*GetParam().field = QString::fromLatin1(GetParam().value);
    const QString row = SummaryTable::row(contact);
    EXPECT_TRUE(row.contains(QString::fromLatin1(GetParam().column))) << qUtf8Printable(row);
}

INSTANTIATE_TEST_SUITE_P(Fits, SummaryTableFit, testing::ValuesIn(fits), RowName());

TEST(SummaryTableTest, LinesAreThoseOfTheTable)
{
    ReportRecord contact;
    contact.name = QStringLiteral("Ann");
    contact.homeAddress = QStringLiteral("1 Road");
    contact.homeCity = QStringLiteral("Dover");
    contact.homePhones = QStringLiteral("1");
    contact.homeMobile = QStringLiteral("2");
    contact.workPhones = QStringLiteral("3");
    const QString row =
        QStringLiteral("Ann                      \\tab 1 Road              \\tab Dover          "
                       "\\tab H:1           \\tab M:2           \\tab W:3           \r\n");
    EXPECT_EQ(SummaryTable::firstRow(contact),
              QStringLiteral(
                  "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang2057{\\fonttbl{\\f0\\fnil\\fcharset0 MS Sans "
                  "Serif;}}\r\n"
                  "{\\colortbl ;\\red0\\green0\\blue160;}\r\n"
                  "\\viewkind4\\uc1\\pard\\cf1\\b\\f0\\fs24 Address Records Summary For Selected "
                  "Records\\cf0\\fs20\r\n"
                  "\\par \\b0\r\n"
                  "\\par \\b Name\\tab\\tab\\tab Address\\tab\\tab City/Town\\tab Phone Numbers\r\n"
                  "\\par ______________________________________________________________________________"
                  "_____________\r\n"
                  "\\par \\b0 ") +
                  row);
    EXPECT_EQ(SummaryTable::row(contact), QStringLiteral("\\par ") + row);
    EXPECT_EQ(SummaryTable::end(), QStringLiteral("\\par \r\n\\par End of Report..\\tab\r\n\\par }\r\n\r\n"));
}
