#include "HostileNames.h"
#include "PrintQt.h"
#include "ReportBook.h"
#include "modprint.h"

#include <gtest/gtest.h>

// Texts that a careless report misreads, in every field.

namespace {

/// What is markup in the reports, beside what every tool has to bear.
QList<HostileName> reportTexts()
{
    QList<HostileName> all = HostileNames::texts();
    all += {
        {"Quote", "O'Neil"},
        {"ClosingBraces", "a}}}}b"},
        {"OpenBraces", QByteArray(50, '{')},
        {"BackslashAtTheEnd", "back\\"},
        {"Binary", "x\\bin99999999 y"},
        {"CharacterWithoutDigits", "O\\'Brien"},
        {"Information", "\\\\server\\info"},
        {"FontTable", "C:\\fonttbl"},
        {"UnicodeWithoutNumber", "x\\u"},
        {"SkippedCharacters", "x\\uc32000 \\u8364 y"},
        {"Picture", "{\\field{\\*\\fldinst INCLUDEPICTURE http://x/y}}"},
        {"Template", "{\\*\\template http://127.0.0.1:9/x.dot}"},
        {"Object", "{\\object\\objocx{\\*\\objdata 0105}}"},
        {"OutsideTheFirstPlane", QByteArray("\xF0\x9F\x98\x80").repeated(12)},
    };
    return all;
}

struct ReportNames : testing::TestWithParam<HostileName>
{
    void SetUp() override
    {
        if (!ReportBook::canReadPages())
            GTEST_SKIP() << "pdftotext, which reads the printed pages, is not installed";
        reports.add(
            {.groupId = 1, .salutation = text, .name = text, .nickName = text, .comment = text},
            {.address = text, .cityId = 1, .zipCode = text, .phone1 = text, .phone2 = text, .mobile = text},
            {.address = text,
             .cityId = 1,
             .zipCode = text,
             .phone1 = text,
             .phone2 = text,
             .fax = text,
             .pager = text,
             .company = text,
             .post = text,
             .department = text},
            {text});
        reports.add({"Ben", "Cid"});
    }

    QString text = GetParam().text().left(50);
    ReportBook reports;
};

} // namespace

TEST_P(ReportNames, BreakNoSheet)
{
    reports.expectPrint();
    PrintSelectedRecords(reports.rows);
    const QString pages = reports.printed();
    EXPECT_EQ(pages.count(QStringLiteral("ADDRESS BOOK DETAILS FOR")), 3);
    EXPECT_TRUE(pages.contains(QStringLiteral("DETAILS FOR Ben.")));
    EXPECT_TRUE(pages.contains(QStringLiteral("Name: Ben")));
    EXPECT_TRUE(pages.contains(QStringLiteral("ADDRESS BOOK DETAILS FOR Cid. Name: Cid")));
}

TEST_P(ReportNames, BreakNoSummary)
{
    reports.expectPrint();
    PrintSummary(reports.rows);
    EXPECT_TRUE(reports.printed().startsWith(QStringLiteral("Address Records Summary")));
    EXPECT_TRUE(reports.printed().contains(QStringLiteral("Ben")));
    EXPECT_TRUE(reports.printed().endsWith(QStringLiteral("End of Report..")));
}

INSTANTIATE_TEST_SUITE_P(Texts, ReportNames, testing::ValuesIn(reportTexts()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);
