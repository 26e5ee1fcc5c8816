#include "ErrorNumberOf.h"
#include "Numbers.h"
#include "PrintQt.h"

#include <QLocale>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

struct SingleRow
{
    const char *name;
    float value;
    const char *text;
};

struct TextRow
{
    const char *name;
    const char *text;
    double value;
    int error;
};

template<class Row>
std::string nameOf(const testing::TestParamInfo<Row> &row)
{
    return row.param.name;
}

struct SingleTextTest : testing::TestWithParam<SingleRow>
{};
struct ToSingleTest : testing::TestWithParam<TextRow>
{};
struct ToIntegerTest : testing::TestWithParam<TextRow>
{};

} // namespace

TEST_P(SingleTextTest, IsShortAndPlain)
{
    EXPECT_EQ(Numbers::singleText(GetParam().value), QString::fromLatin1(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SingleTextTest,
    testing::Values(SingleRow{"Zero", 0, "0"}, SingleRow{"NegativeZero", -0.0F, "0"},
                    SingleRow{"Whole", 1000, "1000"}, SingleRow{"Negative", -15, "-15"},
                    SingleRow{"NoTrailingZeros", 2.50F, "2.5"}, SingleRow{"NoLeadingZero", 0.5F, ".5"},
                    SingleRow{"NoLeadingZeroNegative", -0.25F, "-.25"},
                    SingleRow{"SevenDigits", 1234567, "1234567"}, SingleRow{"Rounded", 0.1F, ".1"},
                    SingleRow{"Third", 1.0F / 3, ".3333333"}, SingleRow{"Exponent", 1e7F, "1E+07"},
                    SingleRow{"LargeDigits", 12345678, "1.234568E+07"}, SingleRow{"Tiny", 1e-10F, "1E-10"}),
    nameOf<SingleRow>);

TEST(NumbersTest, TheLocaleHasNoSay)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    EXPECT_EQ(Numbers::singleText(1234.5F), QStringLiteral("1234.5"));
    EXPECT_EQ(Numbers::toSingle(QStringLiteral("1234.5")), 1234.5F);
    QLocale::setDefault(before);
}

TEST(NumbersTest, WhatIsWrittenReadsBack)
{
    for (const float value : {0.0F, 13200.0F, -4.25F, 1e30F, 0.015625F})
        EXPECT_EQ(Numbers::toSingle(Numbers::singleText(value)), value);
}

TEST_P(ToSingleTest, ConvertsOrTellsWhy)
{
    const QString text = QString::fromUtf8(GetParam().text);
    float value = 0;
    EXPECT_EQ(errorNumberOf([&] { value = Numbers::toSingle(text); }), GetParam().error);
    EXPECT_EQ(value, float(GetParam().value));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ToSingleTest,
    testing::Values(TextRow{"Whole", "1000", 1000, 0}, TextRow{"Blanks", "  12.5\t", 12.5, 0},
                    TextRow{"Point", ".5", 0.5, 0}, TextRow{"Exponent", "1E+07", 1e7, 0},
                    TextRow{"Empty", "", 0, 13}, TextRow{"OnlyBlanks", "  ", 0, 13},
                    TextRow{"Word", "wide", 0, 13}, TextRow{"TailOfWords", "12px", 0, 13},
                    TextRow{"TwoPoints", "1.2.3", 0, 13}, TextRow{"Infinity", "inf", 0, 13},
                    TextRow{"NegativeInfinity", "-inf", 0, 13}, TextRow{"NotANumber", "nan", 0, 13},
                    TextRow{"WiderThanSingle", "1e39", 0, 6}, TextRow{"WiderThanDouble", "1e999", 0, 6},
                    TextRow{"NegativeWide", "-1e999", 0, 6}, TextRow{"TooSmallIsZero", "1e-60", 0, 0},
                    TextRow{"OtherDigits", "\xD9\xA1\xD9\xA2", 0, 13}),
    nameOf<TextRow>);

TEST_P(ToIntegerTest, ConvertsOrTellsWhy)
{
    const QString text = QString::fromUtf8(GetParam().text);
    qint16 value = 0;
    EXPECT_EQ(errorNumberOf([&] { value = Numbers::toInteger(text); }), GetParam().error);
    EXPECT_EQ(value, qint16(GetParam().value));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ToIntegerTest,
    testing::Values(TextRow{"Whole", "1", 1, 0}, TextRow{"Blanks", " -7 ", -7, 0},
                    TextRow{"HalfToEvenDown", "2.5", 2, 0}, TextRow{"HalfToEvenUp", "3.5", 4, 0},
                    TextRow{"NegativeHalf", "-2.5", -2, 0}, TextRow{"Largest", "32767.4", 32767, 0},
                    TextRow{"Smallest", "-32768.5", -32768, 0}, TextRow{"TooLarge", "32767.5", 0, 6},
                    TextRow{"TooSmall", "-32769", 0, 6}, TextRow{"FarTooLarge", "1e999", 0, 6},
                    TextRow{"Word", "yes", 0, 13}, TextRow{"Empty", "", 0, 13},
                    TextRow{"Infinity", "inf", 0, 13}),
    nameOf<TextRow>);
