#include "DetailSheet.h"
#include "PrintQt.h"
#include "ReportRecord.h"

#include <QByteArrayList>
#include <gtest/gtest.h>

namespace {

/// Every value is another one.
ReportRecord record()
{
    ReportRecord contact;
    contact.name = QStringLiteral("<name>");
    contact.nickName = QStringLiteral("<nick>");
    contact.comment = QStringLiteral("<comment>");
    contact.birthDate = QStringLiteral("<born>");
    contact.groupName = QStringLiteral("<group>");
    contact.eMailText = QStringLiteral("<mail>");
    contact.homeAddress = QStringLiteral("<h address>");
    contact.homeCity = QStringLiteral("<h city>");
    contact.homeState = QStringLiteral("<h state>");
    contact.homeZip = QStringLiteral("<h zip>");
    contact.homePhones = QStringLiteral("<h phones>");
    contact.homeMobile = QStringLiteral("<h mobile>");
    contact.workAddress = QStringLiteral("<w address>");
    contact.workCity = QStringLiteral("<w city>");
    contact.workState = QStringLiteral("<w state>");
    contact.workZip = QStringLiteral("<w zip>");
    contact.workPhones = QStringLiteral("<w phones>");
    contact.workFax = QStringLiteral("<w fax>");
    contact.workMobile = QStringLiteral("<w mobile>");
    contact.company = QStringLiteral("<company>");
    contact.post = QStringLiteral("<post>");
    contact.department = QStringLiteral("<department>");
    return contact;
}

const QByteArrayList body = {
    "\\par \\pard\\nowidctlpar\\cf0\\f1",
    "\\par Name:  \\b0 <name>\\tab\\tab\\tab\\b (Nickname: \\b0 <nick>\\b\\tab )",
    "\\par",
    "\\par \\pard\\keepn\\nowidctlpar\\s1 Home Address:  \\tab\\b0 <h address>\\tab",
    "\\par \\pard\\nowidctlpar\\tab\\tab\\tab <h city>",
    "\\par \\tab\\tab\\tab <h state>",
    "\\par \\tab\\tab\\tab <h zip>",
    "\\par \\b",
    "\\par Telephone:\\tab\\b0 <h phones>\\tab\\tab\\b Mobile:\\b0\\tab <h mobile>\\tab",
    "\\par",
    "\\par \\b Email:\\tab\\tab\\b0 <mail>\\b\\tab\\b0",
    "\\par",
    "\\par \\pard\\keepn\\nowidctlpar\\s1\\b DOB:\\tab\\tab\\b0 <born>\\tab\\tab\\tab\\tab\\b (In "
    "Group:\\tab\\b0 <group>\\b )",
    "\\par \\pard\\nowidctlpar\\b0\\f0",
    "\\par \\b\\f1 Company:\\b0\\tab <company>\\tab\\tab\\tab\\b Dept:\\b0\\tab <department>",
    "\\par \\b",
    "\\par Position:\\b0\\tab <post>\\tab\\tab",
    "\\par \\pard\\keepn\\nowidctlpar\\s1\\b",
    "\\par Work Address: \\tab\\b0 <w address>\\tab",
    "\\par \\pard\\nowidctlpar\\tab\\tab\\tab <w city>",
    "\\par \\tab\\tab\\tab <w state>",
    "\\par \\tab\\tab\\tab <w zip>\\b",
    "\\par",
    "\\par Work Telephone:\\tab\\b0 <w phones>\\tab\\b Mobile:\\b0\\tab <w mobile>\\tab",
    "\\par",
    "\\par \\b Fax:\\tab\\tab\\tab\\cf2\\b0 <w fax>\\cf0",
    "\\par",
    "\\par \\b Comments:\\tab\\tab\\cf2\\b0\\fs16 <comment>",
    "\\par",
    "\\par \\cf0\\b\\fs20",
    "\\par \\b0",
    "\\par \\f0",
};

/// Line by line, so that a failure names the line.
void expectLines(const QString &text, const QByteArrayList &lines)
{
    const QList<QByteArray> written = text.toLatin1().split('\n');
    ASSERT_EQ(written.size(), lines.size() + 1);
    for (qsizetype i = 0; i < lines.size(); ++i)
        EXPECT_EQ(written[i], lines[i] + '\r') << i + 1;
    EXPECT_EQ(written.last(), QByteArray());
}

} // namespace

TEST(DetailSheetTest, TheFirstContactHasTheDocumentsHeadAndLeavesItOpen)
{
    const QByteArrayList head = {
        "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033\\deflangfe1033{\\fonttbl{\\f0\\fswiss\\fprq2\\"
        "fcharset0 Arial;}{\\f1\\fnil\\fcharset0 MS Sans Serif;}}",
        "{\\colortbl;\\red51\\green51\\blue153;\\red0\\green0\\blue0;}",
        "{\\stylesheet{ Normal;}{\\s1 heading 1;}}",
        "\\viewkind4\\uc1\\pard\\keepn\\nowidctlpar\\s1\\cf1\\lang2057\\b\\f0\\fs20 ADDRESS BOOK DETAILS "
        "FOR <name>.",
    };
    expectLines(DetailSheet::first(record()), head + body + QByteArrayList{"\\par \\b\\f1", "\\par \\b0"});
}

TEST(DetailSheetTest, TheSecondContactEndsTheDocument)
{
    const QByteArrayList head = {
        "\\par",
        "\\par \\cf0\\b\\fs20",
        "\\par \\b0",
        "\\par \\pard\\keepn\\nowidctlpar\\s1\\cf1\\b\\f0 ADDRESS BOOK DETAILS FOR <name>.",
    };
    expectLines(DetailSheet::second(record()),
                head + body + QByteArrayList{"\\par", "\\par \\b\\f1", "\\par \\b0", "\\par }"});
}

TEST(DetailSheetTest, AContactAloneIsEndedByABrace)
{
    EXPECT_EQ(DetailSheet::end(), QStringLiteral("}\r\n"));
}

TEST(DetailSheetTest, ValuesStayAsTheyAre)
{
    ReportRecord contact = record();
    contact.name = QStringLiteral("{a} \\b %1 %11");
    contact.homeAddress = QStringLiteral("1 Road\nFlat 2\r\nTown");
    contact.company = QStringLiteral("%2");
    const QString text = DetailSheet::first(contact);
    EXPECT_TRUE(text.contains(QStringLiteral("DETAILS FOR {{a} \\b %1 %11}.\r\n")));
    EXPECT_TRUE(text.contains(QStringLiteral("\\b0 {{a} \\b %1 %11}\\tab")));
    EXPECT_TRUE(text.contains(QStringLiteral("\\b0 1 Road\nFlat 2\r\nTown\\tab\r\n")));
    EXPECT_TRUE(text.contains(QStringLiteral("\\tab %2\\tab")));
}

TEST(DetailSheetTest, MarkupOfAValueEndsWithIt)
{
    ReportRecord contact;
    for (QString *value :
         {&contact.name,        &contact.nickName,  &contact.comment,     &contact.birthDate,
          &contact.groupName,   &contact.eMailText, &contact.homeAddress, &contact.homeCity,
          &contact.homeState,   &contact.homeZip,   &contact.homePhones,  &contact.homeMobile,
          &contact.workAddress, &contact.workCity,  &contact.workState,   &contact.workZip,
          &contact.workPhones,  &contact.workFax,   &contact.workMobile,  &contact.company,
          &contact.post,        &contact.department})
        *value = QStringLiteral("a{");
    const QString text = DetailSheet::first(contact) + DetailSheet::second(contact);
    EXPECT_EQ(text.count(QStringLiteral("{a{}}")), 2 * 23); // the name twice
    EXPECT_EQ(text.count(u'{'), text.count(u'}'));
}
