#include "NumberedFile.h"
#include "PrintQt.h"
#include "ScratchFolder.h"

#include <gtest/gtest.h>

namespace {

struct NumberedFileTest : testing::Test
{
    QString in(const char *name) const { return folder.path() + u'/' + QString::fromUtf8(name); }
    QString next(const char *name) { return NumberedFile::next(in(name), number); }

    ScratchFolder folder;
    int number = 2;
};

} // namespace

TEST_F(NumberedFileTest, TheNumberIsBeforeTheEnding)
{
    EXPECT_EQ(next("a.pdf"), in("a-2.pdf"));
    EXPECT_EQ(number, 2);
    EXPECT_EQ(next("a.b.PDF"), in("a.b-2.PDF"));
    EXPECT_EQ(next("a"), in("a-2"));
    EXPECT_EQ(next("J\u00F6rg %1 &.pdf"), in("J\u00F6rg %1 &-2.pdf"));
}

TEST_F(NumberedFileTest, NumbersThatAreTakenAreSkipped)
{
    folder.addFile("a-2.pdf");
    folder.addFolder("a-3.pdf");
    folder.addFile("a-5.pdf");
    EXPECT_EQ(next("a.pdf"), in("a-4.pdf"));
    EXPECT_EQ(number, 4);
    ++number;
    EXPECT_EQ(next("a.pdf"), in("a-6.pdf"));
}
