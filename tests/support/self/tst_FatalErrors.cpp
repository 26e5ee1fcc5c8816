#include "EventGate.h"
#include "FatalErrors.h"
#include "PrintQt.h"
#include "RuntimeError.h"

#include <gtest/gtest-spi.h>

namespace {

void failWith(int number)
{
    run([=] { throw RuntimeError(number); });
}

} // namespace

TEST(FatalErrorsTest, RecordsWhatWasExpected)
{
    FatalErrors fatal;
    fatal.expect(13);
    fatal.expect(6, QStringLiteral("Overflow"));
    fatal.expectEnd(EXIT_SUCCESS);
    failWith(13);
    failWith(6);
    EventGate::end(EXIT_SUCCESS);
    ASSERT_EQ(fatal.seen().size(), 2);
    EXPECT_EQ(fatal.seen()[1].description, QStringLiteral("Overflow"));
    EXPECT_EQ(fatal.ends(), (QList<int>{EXIT_FAILURE, EXIT_FAILURE, EXIT_SUCCESS}));
}

TEST(FatalErrorsTest, AnUnexpectedErrorFails)
{
    FatalErrors fatal;
    EXPECT_NONFATAL_FAILURE(failWith(13), "Type mismatch");
}

TEST(FatalErrorsTest, AnotherErrorThanExpectedFails)
{
    FatalErrors fatal;
    fatal.expect(13);
    EXPECT_NONFATAL_FAILURE(failWith(6), "Overflow");
    fatal.expect(13, QStringLiteral("other words"));
    EXPECT_NONFATAL_FAILURE(failWith(13), "other words");
}

TEST(FatalErrorsTest, AnErrorThatDoesNotComeFails)
{
    EXPECT_NONFATAL_FAILURE(
        {
            FatalErrors fatal;
            fatal.expect(13);
        },
        "fatal error 13 did not come");
}

TEST(FatalErrorsTest, AnEndFailsUnlessItWasExpected)
{
    EXPECT_NONFATAL_FAILURE(
        {
            FatalErrors fatal;
            EventGate::end(EXIT_SUCCESS);
        },
        "the process would end with 0");
    EXPECT_NONFATAL_FAILURE(
        {
            FatalErrors fatal;
            fatal.expectEnd(EXIT_SUCCESS);
        },
        "the process did not end with 0");
}

TEST(FatalErrorsTest, WithoutItEveryErrorFails)
{
    testing::TestPartResultArray results;
    {
        const testing::ScopedFakeTestPartResultReporter reporter(
            testing::ScopedFakeTestPartResultReporter::INTERCEPT_ALL_THREADS, &results);
        failWith(13);
    }
    ASSERT_EQ(results.size(), 2); // the error, and the end
    EXPECT_NE(std::string(results.GetTestPartResult(0).message()).find("fatal error 13"), std::string::npos);
}
