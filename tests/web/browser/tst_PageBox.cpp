#include "HostileNames.h"
#include "PageBox.h"
#include "PrintQt.h"
#include "ShownText.h"

#include <gtest/gtest.h>

namespace {

struct SuggestedNameTest : testing::TestWithParam<HostileName>
{};

} // namespace

TEST_P(SuggestedNameTest, IsAPlainNameOfAFile)
{
    const QString name = PageBox::suggestedName(GetParam().text());
    EXPECT_FALSE(name.isEmpty());
    EXPECT_FALSE(name.contains(u'/'));
    EXPECT_FALSE(name.startsWith(u'.'));
    EXPECT_LE(name.toUtf8().size(), 255);
    EXPECT_EQ(name, ShownText::line(name));
}

INSTANTIATE_TEST_SUITE_P(Names, SuggestedNameTest, testing::ValuesIn(HostileNames::all()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);

TEST(SuggestedName, KeepsWhatAUserExpects)
{
    const auto suggested = [](const char *name) { return PageBox::suggestedName(QString::fromUtf8(name)); };
    EXPECT_EQ(suggested("Report 2.pdf"), QStringLiteral("Report 2.pdf"));
    EXPECT_EQ(suggested("../../etc/passwd"), QStringLiteral("passwd"));
    EXPECT_EQ(suggested(".bashrc"), QStringLiteral("bashrc"));
    EXPECT_EQ(suggested(".."), QStringLiteral("download"));
    EXPECT_EQ(suggested(""), QStringLiteral("download"));
    EXPECT_TRUE(suggested((QByteArray(300, 'x') + ".pdf").constData()).endsWith(QStringLiteral("x.pdf")));
}
