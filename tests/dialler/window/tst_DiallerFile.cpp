#include "DiallerFile.h"

#include "ErrorNumberOf.h"
#include "Files.h"
#include "PrintQt.h"
#include "RowName.h"
#include "ScratchProgramFolder.h"

#include <gtest/gtest.h>

namespace {

struct StoredPosition
{
    const char *name;
    const char *content;
    qint32 position;
};

struct DiallerFileTest : testing::TestWithParam<StoredPosition>
{
    ScratchProgramFolder folder;
    QString path() const { return folder.path() + QStringLiteral("/dialler.dat"); }
};

} // namespace

TEST_P(DiallerFileTest, ReadsTheFirstNumber)
{
    folder.addFile("dialler.dat", GetParam().content);
    EXPECT_EQ(DiallerFile::read(), GetParam().position);
}

INSTANTIATE_TEST_SUITE_P(
    Contents, DiallerFileTest,
    testing::Values(StoredPosition{"AsWritten", " 2 \r\n", 2}, StoredPosition{"Shipped", " 0 \r\n", 0},
                    StoredPosition{"Bare", "12", 12}, StoredPosition{"ManyBlanks", "   7", 7},
                    StoredPosition{"BlankEnds", "1 2", 1}, StoredPosition{"CommaEnds", "3,4", 3},
                    StoredPosition{"LineEnds", "5\r\n6", 5}, StoredPosition{"Negative", "-1 \r\n", -1},
                    StoredPosition{"Empty", "", 0}, StoredPosition{"OnlyLineEnds", "\r\n\r\n4", 0},
                    StoredPosition{"NoDigits", "none\r\n", 0}, StoredPosition{"NotText", "\xff\xfe", 0},
                    StoredPosition{"Largest", "2147483647", 2147483647}),
    RowName());

TEST_F(DiallerFileTest, WritesTheNumberWithItsBlanks)
{
    DiallerFile::write(2);
    EXPECT_EQ(Files::read(path()), " 2 \r\n");
    DiallerFile::write(0);
    EXPECT_EQ(Files::read(path()), " 0 \r\n");
    DiallerFile::write(-1);
    EXPECT_EQ(Files::read(path()), "-1 \r\n");
}

TEST_F(DiallerFileTest, ANumberBeyond32BitsOverflows)
{
    folder.addFile("dialler.dat", "2147483648");
    EXPECT_EQ(errorNumberOf([] { DiallerFile::read(); }), ErrorNumber::Overflow);
}

TEST_F(DiallerFileTest, WithoutTheFileThereIsNoNumber)
{
    EXPECT_EQ(errorNumberOf([] { DiallerFile::read(); }), ErrorNumber::FileNotFound);
}
