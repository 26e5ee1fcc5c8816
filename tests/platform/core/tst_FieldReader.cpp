#include "FieldReader.h"
#include "PrintQt.h"
#include "RowName.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace {

struct FieldsCase
{
    const char *name;
    const char *text;
    const char *fields; // joined by "|"
};

struct FieldReaderTest : testing::TestWithParam<FieldsCase>
{};

constexpr FieldsCase fieldsCases[] = {
    {"Commas", "0,a,b", "0|a|b"},
    {"EmptyFields", "7,,,,,\r\n", "7|||||"},
    {"LineEnds", "a\r\nb\rc\nd", "a|b|c|d"},
    {"NothingBehindTheLastLineEnd", "a\r\n", "a"},
    {"AnEmptyLineIsAField", "a\r\n\r\nb", "a||b"},
    {"LeadingBlanks", "  a,   b c ,d", "a|b c |d"},
    {"BlanksAlone", "a,   ", "a|"},
    {"Quotes", "\"a,b\",c", "a,b|c"},
    {"BlanksBeforeQuotes", "  \" a\",c", " a|c"},
    {"QuotesAcrossLines", "\"a\r\nb\",c", "a\r\nb|c"},
    {"TextBehindTheClosingQuote", "\"a\"x y,c\r\nd", "a|c|d"},
    {"AnEmptyQuotedField", "\"\",c", "|c"},
    {"AQuoteWithoutItsEnd", "\"a,b\r\nc", "a,b\r\nc"},
    {"AQuoteAtTheEnd", "a,\"", "a|"},
    {"AQuoteInTheMiddle", "a\"b,c\"", "a\"b|c\""},
    {"Tabs", "\ta,b", "\ta|b"},
};

} // namespace

TEST_P(FieldReaderTest, TakesFieldsOneByOne)
{
    FieldReader reader(QString::fromLatin1(GetParam().text));
    QStringList fields;
    while (!reader.atEnd())
        fields << reader.next();
    EXPECT_EQ(fields.join(u'|'), QString::fromLatin1(GetParam().fields));
}

INSTANTIATE_TEST_SUITE_P(Texts, FieldReaderTest, testing::ValuesIn(fieldsCases), RowName());

TEST(FieldReader, HasEmptyFieldsBehindTheEnd)
{
    FieldReader reader({});
    EXPECT_TRUE(reader.atEnd());
    EXPECT_EQ(reader.next(), QString());
    EXPECT_TRUE(reader.atEnd());
}
