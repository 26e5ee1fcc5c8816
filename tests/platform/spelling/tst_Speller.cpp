#include "PrintQt.h"
#include "ScratchDictionary.h"
#include "Speller.h"

#include <gtest/gtest.h>

namespace {

struct SpellerTest : testing::Test
{
    ScratchHome home;

    Speller read(const QByteArray &encoding, const QByteArrayList &words) const
    {
        addDictionary(home, QStringLiteral("xx_XX"), encoding, words);
        return Speller(home.file(QStringLiteral(".local/share/hunspell/xx_XX")));
    }
};

} // namespace

TEST_F(SpellerTest, KnowsTheWordsOfItsDictionary)
{
    Speller speller = read("UTF-8", {"house", "\xC3\xA9t\xC3\xA9"});
    EXPECT_TRUE(speller.knows(QStringLiteral("house")));
    EXPECT_TRUE(speller.knows(QStringLiteral("House")));
    EXPECT_TRUE(speller.knows(QStringLiteral("\u00e9t\u00e9")));
    EXPECT_FALSE(speller.knows(QStringLiteral("huose")));
    EXPECT_FALSE(speller.knows(QStringLiteral("huose")));
}

TEST_F(SpellerTest, SuggestsTheLikelyWords)
{
    Speller speller = read("UTF-8", {"house", "horse", "mouse"});
    EXPECT_EQ(speller.suggestions(QStringLiteral("huose"), 1), QStringList(QStringLiteral("house")));
    EXPECT_EQ(speller.suggestions(QStringLiteral("qqqqqqqqqq"), 5), QStringList());
}

TEST_F(SpellerTest, ReadsDictionariesInOldEncodings)
{
    Speller polish = read("ISO8859-2", {"\xBF\xF3\xB3ty"}); // yellow
    EXPECT_TRUE(polish.knows(QStringLiteral("\u017c\u00f3\u0142ty")));
    EXPECT_EQ(polish.suggestions(QStringLiteral("\u017c\u00f3\u0142tt"), 1),
              QStringList(QStringLiteral("\u017c\u00f3\u0142ty")));
    EXPECT_FALSE(polish.knows(QStringLiteral("\u4e2d\u6587")));
}

TEST_F(SpellerTest, ATypographicApostropheIsOne)
{
    Speller speller = read("UTF-8", {"don't"});
    EXPECT_TRUE(speller.knows(QStringLiteral("don\u2019t")));
}

TEST_F(SpellerTest, MarksWithinAWordAreNoLetters)
{
    Speller speller = read("UTF-8", {"house"});
    EXPECT_TRUE(speller.knows(QStringLiteral("hou\u00adse")));
    EXPECT_TRUE(speller.knows(QStringLiteral("hou\u200bse")));
}

TEST_F(SpellerTest, KnowsTheNamesThatDictionariesHaveForEncodings)
{
    Speller russian = read("microsoft-cp1251", {"\xE4\xEE\xEC"}); // house
    EXPECT_TRUE(russian.knows(QStringLiteral("\u0434\u043e\u043c")));
    EXPECT_FALSE(russian.knows(QStringLiteral("\u0434\u043e\u043d")));
}

TEST_F(SpellerTest, OfADictionaryInAnUnknownEncodingEveryWordIsRight)
{
    Speller speller = read("ISO8859-99", {"house"});
    EXPECT_TRUE(speller.knows(QStringLiteral("huose")));
    EXPECT_EQ(speller.suggestions(QStringLiteral("huose"), 5), QStringList());
}

TEST_F(SpellerTest, WithoutItsFilesItKnowsNothing)
{
    Speller speller(home.file(QStringLiteral("nowhere")));
    EXPECT_FALSE(speller.knows(QStringLiteral("house")));
    EXPECT_EQ(speller.suggestions(QStringLiteral("huose"), 5), QStringList());
}
