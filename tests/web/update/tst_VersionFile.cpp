#include "ErrorNumberOf.h"
#include "PrintQt.h"
#include "RowName.h"
#include "Version.h"
#include "VersionFile.h"

#include <gtest/gtest.h>

namespace {

const QByteArray message = "Line one,Line two,Line three,Y,Y\r\n";

struct ComparedVersion
{
    const char *name;
    QByteArray numbers;
    bool isNew;
};

struct VersionComparisonTest : testing::TestWithParam<ComparedVersion>
{};

/// \a major, \a minor and \a revision are added to those of this program.
QByteArray relative(int major, int minor, int revision)
{
    return QByteArray::number(Version::major + major) + ',' + QByteArray::number(Version::minor + minor) +
           ',' + QByteArray::number(Version::revision + revision);
}

const ComparedVersion versions[] = {
    {"Equal", relative(0, 0, 0), false},
    {"HigherRevision", relative(0, 0, 1), true},
    {"HigherMinor", relative(0, 1, 0), true},
    {"HigherMajor", relative(1, 0, 0), true},
    {"LowerMajorWithHigherRevision", relative(-1, 9, 8), true},
    {"AllLower", relative(-1, -1, -1), false},
    {"APartOfANumberIsMore", relative(0, 0, 0) + ".5", true},
    {"TextBehindTheNumber", relative(0, 0, 0) + " beta", false},
    {"NoNumbers", "a,b,c", false},
    {"Huge", "9999999999999999999999,0,0", true},
    {"Negative", "-1,-1,-1", false},
};

QString fieldsOf(const VersionFile::ServerVersion &version)
{
    return QStringList{version.product, version.maker, version.major, version.minor, version.revision}.join(
        u'|');
}

QByteArray versionRecords(int count)
{
    QByteArray bytes;
    for (int number = 0; number < count; ++number)
        bytes += "P" + QByteArray::number(number) + ",M,1,2,3\r\n";
    return bytes;
}

int versionError(const QByteArray &bytes)
{
    return errorNumberOf([&] { const VersionFile file(bytes); });
}

} // namespace

TEST_P(VersionComparisonTest, DoesNotRankTheNumbers)
{
    const VersionFile file("Product,Maker," + GetParam().numbers + "\r\n" + message);
    EXPECT_EQ(file.version().isNew(), GetParam().isNew);
}

INSTANTIATE_TEST_SUITE_P(Versions, VersionComparisonTest, testing::ValuesIn(versions), RowName());

TEST(VersionFile, HasTheVersionInTheLastRecordButOne)
{
    EXPECT_EQ(fieldsOf(VersionFile(versionRecords(2)).version()), QStringLiteral("P0|M|1|2|3"));
    EXPECT_EQ(fieldsOf(VersionFile(versionRecords(3)).version()), QStringLiteral("P1|M|1|2|3"));
    EXPECT_EQ(fieldsOf(VersionFile(versionRecords(11)).version()), QStringLiteral("P9|M|1|2|3"));
}

TEST(VersionFile, OfThreeRecordsHasTheMessageInTheSecond)
{
    const VersionFile file("P0,M,1,2,3\r\nOne,Two,Three,Y,N\r\nFour,Five,Six,N,Y\r\n");
    EXPECT_EQ(file.messageIfNew(), QStringLiteral("One\r\nTwo\r\nThree\r\n"));
    EXPECT_EQ(file.messageIfUpToDate(), QString());
}

TEST(VersionFile, ShowsItsMessageByTheFourthAndTheFifthField)
{
    const auto with = [](const char *fields) {
        return VersionFile(QByteArray("P,M,1,2,3\nA,B,C,") + fields);
    };
    const QString text = QStringLiteral("A\r\nB\r\nC\r\n");
    EXPECT_EQ(with("Y,N").messageIfNew(), text);
    EXPECT_EQ(with("Y,N").messageIfUpToDate(), QString());
    EXPECT_EQ(with("N,Y").messageIfNew(), QString());
    EXPECT_EQ(with("N,Y").messageIfUpToDate(), text);
    EXPECT_EQ(with("y,y").messageIfNew(), QString());
    EXPECT_EQ(with("Yes,Yes").messageIfUpToDate(), QString());
}

TEST(VersionFile, IsReadFieldByField)
{
    const VersionFile file("\"Pro,duct\", Maker\r\n1,2\n3\r\n" + message);
    EXPECT_EQ(fieldsOf(file.version()), QStringLiteral("Pro,duct|Maker|1|2|3"));
}

TEST(VersionFile, WithLessThanTwoRecordsIsAnError)
{
    EXPECT_EQ(versionError({}), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(versionError(versionRecords(1)), ErrorNumber::SubscriptOutOfRange);
}

TEST(VersionFile, WithMoreThanElevenRecordsIsAnError)
{
    EXPECT_EQ(versionError(versionRecords(11)), 0);
    EXPECT_EQ(versionError(versionRecords(12)), ErrorNumber::SubscriptOutOfRange);
}

TEST(VersionFile, WithAnIncompleteRecordIsAnError)
{
    EXPECT_EQ(versionError(versionRecords(2) + "P,M,1"), ErrorNumber::InputPastEnd);
    EXPECT_EQ(versionError("<html><body>Not found</body></html>"), ErrorNumber::InputPastEnd);
}
