#include "BareCalculator.h"
#include "EdgeCases.h"
#include "PrintQt.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

/// From a state, by a key, to another: with what is computed and shown on the way.
struct StateRow
{
    const char *name;
    const char *before; ///< keys that produce the state
    const char *key;
    double result;
    const char *field;
    Operation after;
};

struct RoundingRow
{
    int places;
    double adjustment; ///< under "Down"
    const char *number;
    const char *up;
    const char *down;
};

template<class Row>
std::string nameOf(const testing::TestParamInfo<Row> &row)
{
    return row.param.name;
}

struct CalculatorEdgeTest : testing::TestWithParam<EdgeCase>
{};
struct CalculatorStateTest : testing::TestWithParam<StateRow>
{};
struct CalculatorRoundingTest : testing::TestWithParam<RoundingRow>
{};

struct CalculatorTest : testing::Test
{
    BareCalculator bare;

    QString afterEquals(const QString &keys)
    {
        bare.perform(QLatin1Char('C') + keys + QLatin1Char('='));
        return bare.field;
    }
};

} // namespace

TEST_P(CalculatorEdgeTest, ShowsAndReports)
{
    BareCalculator bare;
    bare.perform(QString::fromUtf8(GetParam().keys));
    EXPECT_EQ(bare.field, QString::fromLatin1(GetParam().field));
    EXPECT_EQ(bare.reported.join(u','), QString::fromLatin1(GetParam().reported));
    EXPECT_EQ(bare.state().LastOperation, GetParam().lastOperation);
    if (std::isnan(GetParam().result))
        EXPECT_TRUE(std::isnan(bare.state().Result));
    else
        EXPECT_EQ(bare.state().Result, GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(Cases, CalculatorEdgeTest, testing::ValuesIn(edgeCases()), nameOf<EdgeCase>);

TEST_P(CalculatorStateTest, ReachesTheExpectedState)
{
    BareCalculator bare;
    bare.perform(QLatin1Char('u') + QString::fromLatin1(GetParam().before));
    bare.perform(QString::fromLatin1(GetParam().key));
    EXPECT_EQ(bare.state().Result, GetParam().result);
    EXPECT_EQ(bare.field, QString::fromLatin1(GetParam().field));
    EXPECT_EQ(bare.state().LastOperation, GetParam().after);
    EXPECT_TRUE(bare.reported.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CalculatorStateTest,
    testing::Values(StateRow{"NonePlus", "8", "+", 8, "", Operation::Add},
                    StateRow{"NoneMinus", "8", "-", 8, "", Operation::Subtract},
                    StateRow{"NoneTimes", "8", "X", 8, "", Operation::Multiply},
                    StateRow{"NoneDivide", "8", "/", 8, "", Operation::Divide},
                    StateRow{"NoneEquals", "8.126", "=", 8.13, "8.13", Operation::Equals},
                    StateRow{"NonePercent", "8", "%", 0, "", Operation::Percent},
                    StateRow{"PlusPlus", "8+2", "+", 10, "", Operation::Add},
                    StateRow{"PlusMinus", "8+2", "-", 10, "", Operation::Subtract},
                    StateRow{"MinusTimes", "8-2", "X", 6, "", Operation::Multiply},
                    StateRow{"TimesDivide", "8X2", "/", 16, "", Operation::Divide},
                    StateRow{"DividePlus", "8/2", "+", 4, "", Operation::Add},
                    StateRow{"PlusEquals", "8+2.126", "=", 10.13, "10.13", Operation::Equals},
                    StateRow{"MinusEquals", "8-2.126", "=", 5.87, "5.87", Operation::Equals},
                    StateRow{"TimesEquals", "8X2.126", "=", 17.01, "17.01", Operation::Equals},
                    StateRow{"DivideEquals", "8/3", "=", 2.67, "2.67", Operation::Equals},
                    StateRow{"PlusPercent", "8+2", "%", 8.16, "8.16", Operation::Percent},
                    StateRow{"MinusPercent", "8-2", "%", 7.84, "7.84", Operation::Percent},
                    StateRow{"TimesPercent", "8X2", "%", 0.16, "0.16", Operation::Percent},
                    StateRow{"DividePercent", "8/3", "%", 266.67, "266.67", Operation::Percent},
                    StateRow{"EqualsPlus", "8=2", "+", 8, "", Operation::Add},
                    StateRow{"EqualsMinus", "8=2", "-", 8, "", Operation::Subtract},
                    StateRow{"EqualsTimes", "8=2", "X", 8, "", Operation::Multiply},
                    StateRow{"EqualsDivide", "8=2", "/", 8, "", Operation::Divide},
                    StateRow{"EqualsEquals", "[3]8.126=[1]", "=", 8.1, "8.1", Operation::Equals},
                    StateRow{"EqualsPercent", "8=2", "%", 8, "", Operation::Percent},
                    StateRow{"PercentPlus", "100+10%", "+", 231, "231", Operation::Add},
                    StateRow{"PercentMinus", "100-10%", "-", 9, "9", Operation::Subtract},
                    StateRow{"PercentTimes", "100X10%", "X", 1, "1", Operation::Multiply},
                    StateRow{"PercentDivide", "100/10%", "/", 100, "100", Operation::Divide},
                    StateRow{"PercentEquals", "100+10%", "=", 231, "231", Operation::Equals},
                    StateRow{"PercentPercent", "100+10%", "%", 110, "", Operation::Percent},
                    StateRow{"ClearFromNone", "8", "C", 0, "", Operation::None},
                    StateRow{"ClearFromPlus", "8+2", "C", 0, "", Operation::None},
                    StateRow{"ClearFromEquals", "8=", "C", 0, "", Operation::None},
                    StateRow{"ClearFromPercent", "100+10%", "C", 0, "", Operation::None}),
    nameOf<StateRow>);

TEST_P(CalculatorRoundingTest, RoundsUpAndDown)
{
    BareCalculator bare;
    bare.perform(QStringLiteral("[%1]").arg(GetParam().places));
    EXPECT_EQ(bare.state().Decimals, GetParam().places);
    EXPECT_EQ(bare.state().RoundingAdjustment, GetParam().adjustment);
    const QString entry = QStringLiteral("C{%1}=").arg(QLatin1String(GetParam().number));
    bare.perform(entry);
    EXPECT_EQ(bare.field, QString::fromLatin1(GetParam().down));
    bare.perform(QLatin1Char('u') + entry);
    EXPECT_EQ(bare.state().RoundingAdjustment, 0);
    EXPECT_EQ(bare.field, QString::fromLatin1(GetParam().up));
    bare.perform(QStringLiteral("d"));
    EXPECT_EQ(bare.state().RoundingAdjustment, GetParam().adjustment);
}

INSTANTIATE_TEST_SUITE_P(
    Places, CalculatorRoundingTest,
    testing::Values(RoundingRow{0, -0.5, "12.9", "13", "12"}, RoundingRow{1, -0.05, "1.29", "1.3", "1.2"},
                    RoundingRow{2, -0.005, "1.239", "1.24", "1.23"},
                    RoundingRow{3, -0.0005, "1.2349", "1.235", "1.234"},
                    RoundingRow{4, -0.00005, "1.23459", "1.2346", "1.2345"},
                    RoundingRow{5, -0.000005, "1.234569", "1.23457", "1.23456"},
                    RoundingRow{6, -0.0000005, "1.2345679", "1.234568", "1.234567"},
                    RoundingRow{7, -0.00000005, "1.23456789", "1.2345679", "1.2345678"},
                    RoundingRow{8, -0.000000005, "1.234567889", "1.23456789", "1.23456788"}),
    [](const auto &row) { return "Places" + std::to_string(row.param.places); });

TEST_F(CalculatorTest, StartsDownWithTwoPlaces)
{
    const CalculatorState &state = bare.state();
    EXPECT_EQ(state.Result, 0);
    EXPECT_EQ(state.Operand, 0);
    EXPECT_EQ(state.LastOperation, Operation::None);
    EXPECT_EQ(state.Decimals, 2);
    EXPECT_EQ(state.RoundingAdjustment, -0.005);
    EXPECT_EQ(state.DecimalPointState, CalculatorState::DecimalPoint::NotUsed);
}

TEST_F(CalculatorTest, RoundsHalvesToEvenWhenUp)
{
    bare.perform(QStringLiteral("u"));
    EXPECT_EQ(afterEquals(QStringLiteral("2.125")), QStringLiteral("2.12"));
    EXPECT_EQ(afterEquals(QStringLiteral("2.375")), QStringLiteral("2.38"));
    EXPECT_EQ(afterEquals(QStringLiteral("2.135")), QStringLiteral("2.14"));
    EXPECT_EQ(afterEquals(QStringLiteral("[0]2.5")), QStringLiteral("2"));
    EXPECT_EQ(afterEquals(QStringLiteral("3.5")), QStringLiteral("4"));
}

TEST_F(CalculatorTest, DownCarriesAnExactHalfToItsEvenNeighbour)
{
    EXPECT_EQ(afterEquals(QStringLiteral("[0]4")), QStringLiteral("4"));
    EXPECT_EQ(afterEquals(QStringLiteral("5")), QStringLiteral("4"));
    EXPECT_EQ(afterEquals(QStringLiteral("[2]1.24")), QStringLiteral("1.24"));
    EXPECT_EQ(afterEquals(QStringLiteral("1.25")), QStringLiteral("1.24"));
    EXPECT_EQ(afterEquals(QStringLiteral("1.239")), QStringLiteral("1.23"));
    EXPECT_EQ(afterEquals(QStringLiteral("7")), QStringLiteral("7"));
    EXPECT_EQ(afterEquals(QStringLiteral("0.25")), QStringLiteral("0.24"));
}

TEST_F(CalculatorTest, ResultsBelowATenThousandthHaveAnExponent)
{
    bare.perform(QStringLiteral("u"));
    EXPECT_EQ(afterEquals(QStringLiteral("[8]0.0001")), QStringLiteral("0.0001"));
    EXPECT_EQ(afterEquals(QStringLiteral("0.00009999")), QStringLiteral("9.999E-05"));
    EXPECT_EQ(afterEquals(QStringLiteral("0.00001")), QStringLiteral("1E-05"));
    EXPECT_EQ(afterEquals(QStringLiteral("0.00000001")), QStringLiteral("1E-08"));
    EXPECT_EQ(afterEquals(QStringLiteral("0.000000001")), QStringLiteral("0"));
}

TEST_F(CalculatorTest, APlaceThatCannotBeChosenCountsAsTwo)
{
    for (const int row : {-1, 9, 1000000}) {
        bare.perform(QStringLiteral("[7]"));
        bare.calculator.chooseDecimals(row, false);
        EXPECT_EQ(bare.state().Decimals, 2);
        EXPECT_EQ(bare.state().RoundingAdjustment, -0.005);
    }
}

TEST_F(CalculatorTest, TheOptionsLeaveThePlaces)
{
    bare.perform(QStringLiteral("[7]"));
    bare.calculator.chooseRounding(3, false);
    EXPECT_EQ(bare.state().Decimals, 7);
    EXPECT_EQ(bare.state().RoundingAdjustment, -0.0005);
}

TEST_F(CalculatorTest, TheFieldIsBlankWhenAnErrorIsReported)
{
    bare.perform(QStringLiteral("10/0=C0/0%"));
    EXPECT_EQ(bare.reported, QStringList({QStringLiteral("error 11"), QStringLiteral("thrown 6"),
                                          QStringLiteral("error 6")}));
    EXPECT_EQ(bare.fieldWhenReported, QStringList({QString(), QString(), QString()}));
}

TEST_F(CalculatorTest, AnErrorLeavesOperandsAndSettings)
{
    bare.perform(QStringLiteral("[5]10/0="));
    EXPECT_EQ(bare.state().Operand, 0);
    EXPECT_EQ(bare.state().Decimals, 5);
    EXPECT_EQ(bare.state().RoundingAdjustment, -0.000005);
}

TEST_F(CalculatorTest, ClearKeepsOperandPercentBaseAndSettings)
{
    bare.perform(QStringLiteral("[5]200-10%C"));
    EXPECT_EQ(bare.state().Operand, 10);
    EXPECT_EQ(bare.state().PercentBase, Operation::Subtract);
    EXPECT_EQ(bare.state().Decimals, 5);
    EXPECT_EQ(bare.state().RoundingAdjustment, -0.000005);
}

TEST_F(CalculatorTest, PercentKeepsTheOperationItAppliesTo)
{
    for (const auto &[keys, base] : {std::pair("7%", Operation::None), std::pair("C7=%", Operation::Equals),
                                     std::pair("C7+1%", Operation::Add), std::pair("%", Operation::Percent),
                                     std::pair("C7/1%", Operation::Divide)}) {
        bare.perform(QString::fromLatin1(keys));
        EXPECT_EQ(bare.state().PercentBase, base) << keys;
    }
}

TEST_F(CalculatorTest, APercentErrorLeavesTheStoredValueUnrounded)
{
    bare.perform(QStringLiteral("{1E300}+{1E300}%"));
    EXPECT_EQ(bare.reported, QStringList{QStringLiteral("error 6")});
    EXPECT_TRUE(std::isinf(bare.state().Result));
    EXPECT_EQ(bare.field, QString());
    EXPECT_EQ(bare.state().LastOperation, Operation::Percent);
}

TEST_F(CalculatorTest, EveryActionKeyAllowsAPoint)
{
    for (const char key : {'=', '+', '-', 'X', '/', '%', 'C'}) {
        bare.perform(QStringLiteral("C{1}."));
        EXPECT_EQ(bare.state().DecimalPointState, CalculatorState::DecimalPoint::Used);
        bare.perform(QString(QLatin1Char(key)));
        EXPECT_EQ(bare.state().DecimalPointState, CalculatorState::DecimalPoint::NotUsed) << key;
    }
}
