#include "PrintQt.h"
#include "RuntimeError.h"

#include <cerrno>
#include <gtest/gtest.h>

namespace {

struct ErrnoRow
{
    int code;
    int number;
};

struct RuntimeErrorErrnoTest : testing::TestWithParam<ErrnoRow>
{};

} // namespace

TEST(RuntimeErrorTest, UsesThePlatformsTextByDefault)
{
    EXPECT_EQ(RuntimeError(11).description(), QStringLiteral("Division by zero"));
    EXPECT_EQ(RuntimeError(13).description(), QStringLiteral("Type mismatch"));
    EXPECT_EQ(RuntimeError(32755).description(), QStringLiteral("Cancel was selected."));
    EXPECT_EQ(RuntimeError(35600).description(), QStringLiteral("Index out of bounds"));
    EXPECT_EQ(RuntimeError(35601).description(), QStringLiteral("Element not found"));
    EXPECT_EQ(RuntimeError(35602).description(), QStringLiteral("Key is not unique in collection"));
    EXPECT_EQ(RuntimeError(1234).description(),
              QStringLiteral("Application-defined or object-defined error"));
}

TEST(RuntimeErrorTest, KeepsItsOwnTextAndSource)
{
    const RuntimeError error(53, QStringLiteral("no caf\u00e9"), QStringLiteral("/a"));
    EXPECT_EQ(error.number(), ErrorNumber::FileNotFound);
    EXPECT_EQ(error.description(), QStringLiteral("no caf\u00e9"));
    EXPECT_EQ(error.source(), QStringLiteral("/a"));
    EXPECT_STREQ(error.what(), "53: no caf\xC3\xA9");
}

TEST(RuntimeErrorTest, IsCaughtAsAStandardException)
{
    try {
        throw RuntimeError(ErrorNumber::Overflow);
    } catch (const std::exception &error) {
        EXPECT_STREQ(error.what(), "6: Overflow");
    }
}

TEST_P(RuntimeErrorErrnoTest, HasTheNumberOfItsKind)
{
    const RuntimeError error = RuntimeError::fromErrno(GetParam().code, QStringLiteral("/a"));
    EXPECT_EQ(error.number(), GetParam().number);
    EXPECT_EQ(error.description(), RuntimeError(GetParam().number).description());
    EXPECT_EQ(error.source(), QStringLiteral("/a"));
}

INSTANTIATE_TEST_SUITE_P(Codes, RuntimeErrorErrnoTest,
                         testing::Values(ErrnoRow{ENOENT, 53}, ErrnoRow{ENOTDIR, 76}, ErrnoRow{EACCES, 70},
                                         ErrnoRow{EPERM, 70}, ErrnoRow{EROFS, 70}, ErrnoRow{ENOSPC, 61},
                                         ErrnoRow{EDQUOT, 61}, ErrnoRow{EFBIG, 61}, ErrnoRow{ENOMEM, 7},
                                         ErrnoRow{EIO, 57}, ErrnoRow{EISDIR, 75}, ErrnoRow{ELOOP, 75}),
                         [](const auto &row) { return "Errno" + std::to_string(row.param.code); });
