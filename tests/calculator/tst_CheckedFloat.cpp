#include "CheckedFloat.h"
#include "FloatLimits.h"
#include "RuntimeError.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr double largest = std::numeric_limits<double>::max();

CheckedFloat of(double value)
{
    return value;
}

} // namespace

TEST(CheckedFloatTest, FiniteResultsHaveNoError)
{
    EXPECT_EQ((of(2) + of(3)).value(), 5);
    EXPECT_EQ((of(2) - of(3)).value(), -1);
    EXPECT_EQ((of(2) * of(3)).value(), 6);
    EXPECT_EQ((of(3) / of(2)).value(), 1.5);
    for (const CheckedFloat &result : {of(2) + of(3), of(2) - of(3), of(2) * of(3), of(0) / of(2)})
        EXPECT_EQ(result.error(), 0);
}

TEST(CheckedFloatTest, AnyNumberButZeroDividedByZeroIsADivisionByZero)
{
    EXPECT_EQ((of(1) / of(0)).error(), ErrorNumber::DivisionByZero);
    EXPECT_EQ((of(1) / of(0)).value(), infinity);
    EXPECT_EQ((of(-1) / of(0)).value(), -infinity);
    EXPECT_EQ((of(1) / of(-0.0)).error(), ErrorNumber::DivisionByZero);
}

TEST(CheckedFloatTest, AnInvalidOperationIsAnOverflow)
{
    for (const CheckedFloat &result :
         {of(0) / of(0), of(infinity) - of(infinity), of(infinity) + of(-infinity), of(infinity) * of(0),
          of(infinity) / of(infinity)}) {
        EXPECT_TRUE(std::isnan(result.value()));
        EXPECT_EQ(result.error(), ErrorNumber::Overflow);
    }
}

TEST(CheckedFloatTest, ATooLargeResultIsAnOverflow)
{
    for (const CheckedFloat &result : {of(largest) + of(largest), of(-largest) - of(largest),
                                       of(largest) * of(2), of(largest) / of(0.5)}) {
        EXPECT_TRUE(std::isinf(result.value()));
        EXPECT_EQ(result.error(), ErrorNumber::Overflow);
    }
}

TEST(CheckedFloatTest, AnOldInfinityOrNotANumberIsNoNewError)
{
    for (const CheckedFloat &result : {of(infinity) + of(1), of(1) - of(infinity), of(infinity) * of(2),
                                       of(infinity) / of(0), of(notANumber) + of(1), of(notANumber) / of(0)})
        EXPECT_EQ(result.error(), 0) << result.value();
}

TEST(CheckedFloatTest, TheFirstErrorStays)
{
    EXPECT_EQ((of(1) / of(0) * of(100)).error(), ErrorNumber::DivisionByZero);
    EXPECT_EQ((of(5) + of(largest) * of(2)).error(), ErrorNumber::Overflow);
    EXPECT_EQ((of(1) / of(0) - of(1) / of(0)).error(), ErrorNumber::DivisionByZero);
    EXPECT_EQ((of(1) / of(0) + of(0) / of(0)).error(), ErrorNumber::DivisionByZero);
    EXPECT_EQ((of(0) / of(0) + of(1) / of(0)).error(), ErrorNumber::Overflow);
}
