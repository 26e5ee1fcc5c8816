#include "EdgeCases.h"

#include <limits>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

const QList<EdgeCase> &edgeCases()
{
    using enum Operation;
    static const QList<EdgeCase> cases = {
        {"AFreshCalculatorIsBlank", "", "", "", 0, None},
        {"AnEmptyFieldReadsAsZero", "+", "", "", 0, Add},
        {"TheLastOperandIsNotRepeated", "7+=", "7", "", 7, Equals},
        {"OperandsAreAdded", "u12+30=", "42", "", 42, Equals},
        {"AChainGoesFromLeftToRight", "u2+3X4-5/3=", "5", "", 5, Equals},
        {"TheOrderOfOperandsMatters", "u7-10=", "-3", "", -3, Equals},
        {"DivisionByZero", "10/0=", "", "error 11,thrown 6", infinity, Equals},
        {"NegativeDivisionByZero", "0-5/0=", "", "error 11,thrown 6", -infinity, Equals},
        {"ZeroByZero", "0/0=", "", "error 6,thrown 6", notANumber, Equals},
        {"TooLargeAProduct", "{1E300}X{1E300}=", "", "error 6,thrown 6", infinity, Equals},
        {"AnOperatorAfterAnErrorGoesOn", "10/0+", "", "error 11", infinity, Add},
        {"EqualsAfterAnErrorTellsAgain", "10/0==", "", "error 11,thrown 6,thrown 6", infinity, Equals},
        {"ClearEndsAnError", "10/0=C2+3=", "5", "error 11,thrown 6", 5, Equals},
        {"PercentOfNothingDivides", "5/0%", "", "error 11", infinity, Percent},
        {"PercentOfAnInfinityIsTrapped", "10/0+1%", "", "error 11,error 6", infinity, Percent},
        {"ADigitExtendsTheResult", "12=3", "123", "", 12, Equals},
        {"APointExtendsTheResult", "12=.", "12.", "", 12, Equals},
        {"AResultWithAPointTakesASecond", "u1.5=.", "1.5.", "", 1.5, Equals},
        {"AndStillReads", "{1.5.}+", "", "", 1.5, Add},
        {"APointStartsANumberUncounted", ".", "0.", "", 0, None},
        {"TheSecondPointIsTaken", "..", "0..", "", 0, None},
        {"TheThirdPointIsRefused", "...", "0..", "point", 0, None},
        {"APointAfterTheFirstDigitsIsTaken", ".5.", "0.5.", "", 0, None},
        {"AndReadsAsOneNumber", ".5.+", "", "", 0.5, Add},
        {"TwoPointsReadAsZero", "..+", "", "", 0, Add},
        {"APointBehindADigitCounts", "5.5.", "5.5", "point", 0, None},
        {"EachRefusalIsTold", "5...", "5.", "point,point", 0, None},
        {"ANewNumberTakesAPoint", "1.5+2.5", "2.5", "", 1.5, Add},
        {"ANewNumberStartsWithAPoint", "1.5+.", "0.", "", 1.5, Add},
        {"ClearAllowsAPoint", "1.5C.", "0.", "", 0, None},
        {"DigitsDoNotAllowAPoint", "1.234.", "1.234", "point", 0, None},
        {"ATypedPointIsNotCounted", "{1.5}.", "1.5.", "", 0, None},
        {"TypingDoesNotAllowAPoint", "1.{2}.", "2", "point", 0, None},
        {"AnEmptiedFieldStillRefuses", "1.{}.", "", "point", 0, None},
        {"WordsReadAsZero", "{abc}+", "", "", 0, Add},
        {"WordsBehindANumberAreLeft", "{12abc}+", "", "", 12, Add},
        {"BlanksAreSkipped", "{ 1 2 }+", "", "", 12, Add},
        {"AnExponentReads", "u{1E+3}=", "1000", "", 1000, Equals},
        {"LargeResultsHaveAnExponent", "u{1000000000000000}=", "1E+15", "", 1e15, Equals},
        {"ASignIsTyped", "u{-5}+2=", "-3", "", -3, Equals},
        {"PercentOfNoneLeavesABlank", "50%", "", "", 0, Percent},
        {"PercentOfEqualsLeavesTheResult", "u5=50%", "", "", 5, Percent},
        {"PercentAdds", "u200+10%", "220", "", 220, Percent},
        {"PercentSubtracts", "u200-10%", "180", "", 180, Percent},
        {"PercentMultiplies", "u200X10%", "20", "", 20, Percent},
        {"PercentDivides", "u200/10%", "2000", "", 2000, Percent},
        {"PercentIsAdjusted", "u1.239+d0%", "1.23", "", 1.23, Percent},
        {"PercentStaysArmedForEquals", "u200+10%=", "704", "", 704, Equals},
        {"PercentStaysArmedForAnOperator", "u200+10%+", "704", "", 704, Add},
        {"PercentStaysArmedWhenDown", "200+10%=", "704", "", 704, Equals},
        {"PercentTwiceIsBlank", "u200+10%%", "", "", 220, Percent},
        {"PercentThriceIsBlank", "u200+10%%%", "", "", 220, Percent},
        {"ClearEndsPercent", "u200+10%C5=", "5", "", 5, Equals},
        {"AnotherRowLeavesTheShownText", "u1.23456=[5]", "1.23", "", 1.23, Equals},
        {"AnotherOptionLeavesTheShownText", "1.239=u", "1.23", "", 1.23, Equals},
        {"TheNextEqualsTakesTheNewRow", "u1.23456+[4]=", "1.2346", "", 1.2346, Equals},
        {"OperatorsKeepFullPrecision", "u[0]1/3X3=", "1", "", 1, Equals},
        {"RepeatedEqualsWalksDown", "[0]5==", "4", "", 4, Equals},
        {"RepeatedEqualsStaysWhenUp", "u[0]5===", "5", "", 5, Equals},
        {"DownRoundsTowardMinusInfinity", "{-1.231}=", "-1.24", "", -1.24, Equals},
        {"ATotalGoesOnBehindEquals", "u5=99+3=", "8", "", 8, Equals},
        {"ZeroHasNoSign", "=", "0", "", 0, Equals},
    };
    return cases;
}
