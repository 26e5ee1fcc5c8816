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

struct DoubleRow
{
    const char *name;
    double value;
    const char *text;
};

struct PrefixRow
{
    const char *name;
    const char *text;
    double value;
};

struct RoundedRow
{
    const char *name;
    double value;
    int places;
    double rounded;
};

constexpr double largest = std::numeric_limits<double>::max();

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
struct DoubleTextTest : testing::TestWithParam<DoubleRow>
{};
struct LeadingNumberTest : testing::TestWithParam<PrefixRow>
{};
struct RoundedTest : testing::TestWithParam<RoundedRow>
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
    EXPECT_EQ(Numbers::doubleText(1234.5), QStringLiteral("1234.5"));
    EXPECT_EQ(Numbers::leadingNumber(QStringLiteral("1234.5,6")), 1234.5);
    QLocale::setDefault(before);
}

TEST(NumbersTest, WhatIsWrittenReadsBack)
{
    for (const float value : {0.0F, 13200.0F, -4.25F, 1e30F, 0.015625F})
        EXPECT_EQ(Numbers::toSingle(Numbers::singleText(value)), value);
}

TEST_P(ToSingleTest, ConvertsOrThrows)
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

TEST_P(ToIntegerTest, ConvertsOrThrows)
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

TEST_P(DoubleTextTest, IsShortAndPlain)
{
    EXPECT_EQ(Numbers::doubleText(GetParam().value), QString::fromLatin1(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DoubleTextTest,
    testing::Values(
        DoubleRow{"Zero", 0, "0"}, DoubleRow{"NegativeZero", -0.0, "0"},
        DoubleRow{"NoTrailingPoint", 5.00, "5"}, DoubleRow{"NoTrailingZeros", 2.50, "2.5"},
        DoubleRow{"Fraction", 0.5, "0.5"}, DoubleRow{"NegativeFraction", -0.25, "-0.25"},
        DoubleRow{"FifteenDigits", 123456789012345, "123456789012345"},
        DoubleRow{"SixteenDigits", 1234567890123456, "1.23456789012346E+15"},
        DoubleRow{"Noise", 0.1 + 0.2, "0.3"}, DoubleRow{"Third", 1.0 / 3, "0.333333333333333"},
        DoubleRow{"BelowTheExponent", 999999999999999, "999999999999999"},
        DoubleRow{"RoundedToTheExponent", 999999999999999.9, "1E+15"}, DoubleRow{"Exponent", 1e15, "1E+15"},
        DoubleRow{"NegativeExponent", -1.5e15, "-1.5E+15"}, DoubleRow{"LongExponent", 1e300, "1E+300"},
        DoubleRow{"Small", 0.0001, "0.0001"}, DoubleRow{"SmallWithDigits", 0.000123456789, "0.000123456789"},
        DoubleRow{"BelowTheSmall", 0.00009999, "9.999E-05"}, DoubleRow{"VerySmall", 0.00001, "1E-05"},
        DoubleRow{"LastPlace", 0.00000001, "1E-08"}, DoubleRow{"NegativeSmall", -0.00001, "-1E-05"},
        DoubleRow{"Largest", largest, "1.79769313486232E+308"},
        DoubleRow{"Smallest", std::numeric_limits<double>::denorm_min(), "4.94065645841247E-324"}),
    nameOf<DoubleRow>);

TEST_P(LeadingNumberTest, ReadsTheNumericPrefix)
{
    EXPECT_EQ(Numbers::leadingNumber(QString::fromUtf8(GetParam().text)), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, LeadingNumberTest,
    testing::Values(
        PrefixRow{"Empty", "", 0}, PrefixRow{"Blanks", "  \t\r\n", 0}, PrefixRow{"Word", "abc", 0},
        PrefixRow{"Whole", "12", 12}, PrefixRow{"LeadingZeros", "0012", 12}, PrefixRow{"Tail", "12abc", 12},
        PrefixRow{"Point", "12.5", 12.5}, PrefixRow{"TwoPoints", "12.5.", 12.5},
        PrefixRow{"PointAtTheEnd", "12.", 12}, PrefixRow{"PointFirst", ".5", 0.5},
        PrefixRow{"PointAlone", ".", 0}, PrefixRow{"ZeroAndTwoPoints", "0..", 0},
        PrefixRow{"PointsApart", "1..5", 1}, PrefixRow{"BlanksAnywhere", " 1 2\t.\n5\r", 12.5},
        PrefixRow{"BlankInTheExponent", "1 E + 3", 1000},
        PrefixRow{"OtherBlankEnds",
                  "1\xC2\xA0"
                  "2",
                  1},
        PrefixRow{"Minus", "-7.5", -7.5}, PrefixRow{"MinusApart", "- 7", -7}, PrefixRow{"Plus", "+7", 7},
        PrefixRow{"MinusPoint", "-.5", -0.5}, PrefixRow{"MinusAlone", "-", 0},
        PrefixRow{"TwoSigns", "--7", 0}, PrefixRow{"SignBehind", "7-", 7}, PrefixRow{"Comma", "1,5", 1},
        PrefixRow{"Exponent", "1E+3", 1000}, PrefixRow{"SmallLetter", "1.5e-3x", 0.0015},
        PrefixRow{"NoSign", "2E2", 200}, PrefixRow{"PointThenExponent", "2.E2", 200},
        PrefixRow{"ExponentAlone", "E5", 0}, PrefixRow{"NoExponentDigits", "5E", 5},
        PrefixRow{"SignWithoutDigits", "5E+", 5}, PrefixRow{"ExponentPoint", "5E1.5", 50},
        PrefixRow{"TwoExponents", "5E1E1", 50}, PrefixRow{"WordsOfFloats", "inf", 0},
        PrefixRow{"NotANumber", "nan", 0}, PrefixRow{"Hex", "0x10", 0},
        PrefixRow{"OtherDigits", "\xD9\xA1\xD9\xA2", 0}, PrefixRow{"TooLarge", "1E999", largest},
        PrefixRow{"TooLargeNegative", "-1E999", -largest},
        PrefixRow{"ExponentBeyondInt", "1E99999999999999999999", largest},
        PrefixRow{"ZeroWithAnyExponent", "0E99999999999999999999", 0}, PrefixRow{"TooSmall", "1E-999", 0},
        PrefixRow{"FarTooSmall", "1E-99999999999999999999", 0},
        PrefixRow{"TextOfTheLargest", "1.79769313486232E+308", largest}),
    nameOf<PrefixRow>);

TEST(NumbersTest, ALeadingNumberMayHaveAnyLength)
{
    constexpr int million = 1'000'000;
    EXPECT_EQ(Numbers::leadingNumber(QString(million, u'9')), largest);
    EXPECT_EQ(Numbers::leadingNumber(QString(million, u'0') + u'7'), 7);
    EXPECT_EQ(Numbers::leadingNumber(QString(million, u' ') + u'7'), 7);
    EXPECT_EQ(Numbers::leadingNumber(QString(million, u'-')), 0);
    EXPECT_EQ(Numbers::leadingNumber(QStringLiteral("0.") + QString(million, u'0') + QStringLiteral("1")), 0);
    EXPECT_EQ(Numbers::leadingNumber(QStringLiteral("1.5") + QString(million, u'0')), 1.5);
    EXPECT_EQ(Numbers::leadingNumber(QStringLiteral("1E") + QString(million, u'0') + u'2'), 100);
    EXPECT_EQ(Numbers::leadingNumber(QStringLiteral("0.") + QString(300, u'0') + QStringLiteral("1E301")), 1);
}

TEST_P(RoundedTest, RoundsToTheNearestOrTheEvenOne)
{
    EXPECT_EQ(Numbers::rounded(GetParam().value, GetParam().places), GetParam().rounded);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RoundedTest,
    testing::Values(RoundedRow{"HalfDownToEven", 2.5, 0, 2}, RoundedRow{"HalfUpToEven", 3.5, 0, 4},
                    RoundedRow{"NegativeHalf", -2.5, 0, -2}, RoundedRow{"HalfOfTwoPlaces", 2.125, 2, 2.12},
                    RoundedRow{"OddHalfOfTwoPlaces", 2.375, 2, 2.38}, RoundedRow{"Below", 1.234, 2, 1.23},
                    RoundedRow{"Above", 1.239, 2, 1.24}, RoundedRow{"Negative", -1.239, 2, -1.24},
                    RoundedRow{"Already", 1.24, 2, 1.24}, RoundedRow{"HalfJustBelow", 2.135, 2, 2.14},
                    RoundedRow{"HalfJustAbove", 1.25 - 0.005, 2, 1.24},
                    RoundedRow{"HalfOfADifference", 1.24 - 0.005, 2, 1.24},
                    RoundedRow{"NegativeHalfJustBelow", -2.135, 2, -2.14},
                    RoundedRow{"NoHalf", 2.13499999999999, 2, 2.13},
                    RoundedRow{"LargestWithDecimals", 99999999999999.5, 0, 100000000000000},
                    RoundedRow{"SixteenDigits", 9007199254740991, 0, 9007199254740991},
                    RoundedRow{"EightPlaces", 1.123456789, 8, 1.12345679}, RoundedRow{"Zero", 0, 8, 0},
                    RoundedRow{"Large", 1e20, 2, 1e20}, RoundedRow{"TooLargeToScale", largest, 8, largest},
                    RoundedRow{"TooLargeToScaleNegative", -largest, 8, -largest}),
    nameOf<RoundedRow>);

TEST(NumbersTest, WhatIsNotFiniteCannotBeRounded)
{
    for (const double value :
         {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
          std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(errorNumberOf([&] { Numbers::rounded(value, 2); }), ErrorNumber::Overflow);
}
