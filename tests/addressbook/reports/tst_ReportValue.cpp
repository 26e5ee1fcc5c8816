#include "PrintQt.h"
#include "ReportValue.h"
#include "RowName.h"

#include <gtest/gtest.h>

namespace {

struct Value
{
    const char *name; ///< of the test
    const char *value;
    const char *markup;
};

const Value values[] = {
    {"Empty", "", ""},
    {"Plain", "Ann O'Neil %1 \"x\" 50%", "Ann O'Neil %1 \"x\" 50%"},
    {"Lines", "1 Road\nFlat 2\r\nTown", "1 Road\nFlat 2\r\nTown"},
    {"ControlWord", "a \\b c", "{a \\b c}"},
    {"Group", "a {\\i b} c", "{a {\\i b} c}"},
    {"OpenBrace", "Ann {Smith", "{Ann {Smith}}"},
    {"OpenBraces", "{{{", "{{{{}}}}"},
    {"ClosingBrace", "a}b", "{{a}b}"},
    {"ClosingBraces", "a}}}}b", "{{{{{a}}}}b}"},
    {"BracesTheWrongWayRound", "a}{b", "{{a}{b}}"},
    {"BracesOfBothKinds", "}}{", "{{{}}{}}"},
    {"EscapedBraces", "\\{\\}\\}", "{\\{\\}\\}}"},
    {"EscapedBackslashAndBrace", "\\\\{", "{\\\\{}}"},
    {"EscapedBackslash", "C:\\\\bin9", "{C:\\\\bin9}"},
    {"BackslashAtTheEnd", "back\\", "{back\\\\}"},
    {"ThreeBackslashesAtTheEnd", "back\\\\\\", "{back\\\\\\\\}"},
    {"BackslashBeforeABraceAtTheEnd", "a{\\", "{a{\\\\}}"},
    {"Character", "caf\\'e9", "{caf\\'e9}"},
    {"CharacterWithoutDigits", "O\\'Brien", "{O\\\\'Brien}"},
    {"CharacterWithoutSecondDigit", "a\\'e", "{a\\\\'e}"},
    {"CharacterAtTheEnd", "a\\'", "{a\\\\'}"},
    {"CharacterOfOtherDigits", "\\'4g", "{\\\\'4g}"},
    {"Bytes", "x\\bin99999999 y", "{x\\\\bin99999999 y}"},
    {"BytesAtTheEnd", "x\\bin", "{x\\\\bin}"},
    {"OtherWordThatBeginsSo", "x\\binary", "{x\\binary}"},
};

struct ReportValueTest : testing::TestWithParam<Value>
{};

} // namespace

TEST_P(ReportValueTest, IsMarkupThatEndsWithTheValue)
{
    EXPECT_EQ(ReportValue::markup(QString::fromLatin1(GetParam().value)),
              QString::fromLatin1(GetParam().markup));
}

INSTANTIATE_TEST_SUITE_P(Values, ReportValueTest, testing::ValuesIn(values), RowName());
