#include "ErrorNumberOf.h"
#include "PrintQt.h"
#include "RowName.h"
#include "UpdateFileList.h"

#include <gtest/gtest.h>

namespace {

struct ComparedSize
{
    const char *name;
    const char *size;
    qint64 bytes;
    bool isRight;
};

struct SizeTest : testing::TestWithParam<ComparedSize>
{};

constexpr ComparedSize sizes[] = {
    {"Equal", "12", 12, true},
    {"OneByteShort", "12", 11, false},
    {"OneByteLong", "12", 13, false},
    {"Empty", "0", 0, true},
    {"NoNumber", "abc", 0, true},
    {"TextBehindTheNumber", "12 bytes", 12, true},
    {"Negative", "-12", 12, false},
    {"TwoGigabytes", "2147483648", 2147483648, true},
    {"BeyondAnyFile", "9223372036854775808", 0, false},
    {"PartOfAByte", "12.5", 12, false},
};

QByteArray records(int count)
{
    QByteArray bytes;
    for (int number = 0; number < count; ++number)
        bytes += "f" + QByteArray::number(number) + ",x,1\r\n";
    return bytes;
}

int errorOf(const QByteArray &bytes)
{
    return errorNumberOf([&] { UpdateFileList::read(bytes); });
}

} // namespace

TEST_P(SizeTest, IsComparedAsANumber)
{
    const UpdateFile file{QStringLiteral("a"), QString::fromLatin1(GetParam().size)};
    EXPECT_EQ(file.hasSize(GetParam().bytes), GetParam().isRight);
}

INSTANTIATE_TEST_SUITE_P(Sizes, SizeTest, testing::ValuesIn(sizes), RowName());

TEST(UpdateFileList, HasNameAndSizeInTheFirstAndTheThirdField)
{
    const QList<UpdateFile> files =
        UpdateFileList::read("updatefiles.zip,dropped,120\r\n\"a, b.txt\",,7\r\n");
    ASSERT_EQ(files.size(), 2);
    EXPECT_EQ(files[0].name, QStringLiteral("updatefiles.zip"));
    EXPECT_EQ(files[0].size, QStringLiteral("120"));
    EXPECT_EQ(files[1].name, QStringLiteral("a, b.txt"));
    EXPECT_EQ(files[1].size, QStringLiteral("7"));
}

TEST(UpdateFileList, MayBeEmpty)
{
    EXPECT_TRUE(UpdateFileList::read({}).isEmpty());
}

TEST(UpdateFileList, HoldsAHundredAndOneRecords)
{
    EXPECT_EQ(UpdateFileList::read(records(101)).size(), 101);
    EXPECT_EQ(errorOf(records(102)), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(errorOf(records(10'000)), ErrorNumber::SubscriptOutOfRange);
}

TEST(UpdateFileList, WithAnIncompleteRecordIsAnError)
{
    EXPECT_EQ(errorOf("a,b,1\r\nc,d"), ErrorNumber::InputPastEnd);
}
