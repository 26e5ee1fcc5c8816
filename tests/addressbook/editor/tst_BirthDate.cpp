#include "BirthDate.h"
#include "PrintQt.h"
#include "RowName.h"

#include <gtest/gtest.h>

namespace {

struct Typed
{
    const char *name;
    const char *text;
    const char *shown;
};

struct BirthDateTest : testing::TestWithParam<Typed>
{};

} // namespace

TEST_P(BirthDateTest, IsTidied)
{
    const QString tidied = BirthDate::tidied(QString::fromUtf8(GetParam().text));
    EXPECT_EQ(tidied, QString::fromUtf8(GetParam().shown));
    EXPECT_EQ(BirthDate::tidied(tidied), tidied);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, BirthDateTest,
    testing::Values(Typed{"Short", "5-Sep-1999", "05-Sep-1999"},
                    Typed{"AnyCase", "5-sEP-1999", "05-Sep-1999"}, Typed{"Iso", "1999-09-05", "05-Sep-1999"},
                    Typed{"Blanks", " 5-Sep-1999 ", "05-Sep-1999"},
                    Typed{"LeapDay", "29-Feb-2000", "29-Feb-2000"}, Typed{"NoLeapDay", "29-Feb-1900", ""},
                    Typed{"NoSuchDay", "31-Jun-1999", ""}, Typed{"TwoDigitYear", "5-Sep-99", ""},
                    Typed{"Slashes", "5/9/1999", ""}, Typed{"Words", "yesterday", ""},
                    Typed{"Tail", "5-Sep-1999x", ""}, Typed{"Empty", "", ""}),
    RowName());

TEST(BirthDate, NoneIsShownAsNothing)
{
    EXPECT_EQ(BirthDate::shown(std::nullopt), QString());
    EXPECT_EQ(BirthDate::shown(QDate(1, 1, 1)), QStringLiteral("01-Jan-0001"));
}
