#include "BackgroundTask.h"
#include "PrintQt.h"
#include "ScratchDictionary.h"
#include "Speller.h"
#include "Spellers.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

struct SpellersTest : testing::Test
{
    ScratchHome home;
    Spellers spellers;
    QSignalSpy changed{&spellers, &Spellers::changed};

    Speller *waitFor(const char *language)
    {
        if (Speller *speller = spellers.of(QString::fromLatin1(language)))
            return speller;
        EXPECT_TRUE(changed.wait(20000));
        return spellers.of(QString::fromLatin1(language));
    }
};

} // namespace

TEST_F(SpellersTest, ADictionaryIsReadInTheBackground)
{
    addDictionary(home, QStringLiteral("qq_QQ"), "UTF-8", {"house"});
    EXPECT_EQ(spellers.of(QStringLiteral("qq_QQ")), nullptr);
    ASSERT_TRUE(changed.wait(20000));
    ASSERT_TRUE(spellers.of(QStringLiteral("qq_QQ")));
    EXPECT_TRUE(spellers.of(QStringLiteral("qq_QQ"))->knows(QStringLiteral("house")));
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(SpellersTest, AnotherCountrysDictionaryIsBetterThanNone)
{
    addDictionary(home, QStringLiteral("qq_AA"), "UTF-8", {"house"});
    Speller *other = waitFor("qq_QQ");
    ASSERT_TRUE(other);
    EXPECT_EQ(waitFor("qq_AA"), other);
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(SpellersTest, TheCountrysOwnDictionaryIsTakenFirst)
{
    addDictionary(home, QStringLiteral("qq_AA"), "UTF-8", {"color"});
    addDictionary(home, QStringLiteral("qq_QQ"), "UTF-8", {"colour"});
    ASSERT_TRUE(waitFor("qq_QQ"));
    EXPECT_TRUE(waitFor("qq_QQ")->knows(QStringLiteral("colour")));
    EXPECT_FALSE(waitFor("qq_QQ")->knows(QStringLiteral("color")));
}

TEST_F(SpellersTest, SuggestionsAreLookedForInTheBackground)
{
    addDictionary(home, QStringLiteral("qq_QQ"), "UTF-8", {"house"});
    Speller *speller = waitFor("qq_QQ");
    ASSERT_TRUE(speller);
    changed.clear();
    QObject asker;
    QStringList words;
    spellers.suggest(*speller, QStringLiteral("huose"), 5, asker,
                     [&](const QStringList &found) { words = found; });
    EXPECT_TRUE(words.isEmpty());
    ASSERT_TRUE(changed.wait(20000));
    EXPECT_EQ(words, QStringList(QStringLiteral("house")));
}

TEST_F(SpellersTest, SuggestionsComeToNoneWhoIsGone)
{
    addDictionary(home, QStringLiteral("qq_QQ"), "UTF-8", {"house"});
    Speller *speller = waitFor("qq_QQ");
    ASSERT_TRUE(speller);
    changed.clear();
    bool hasCome = false;
    spellers.suggest(*speller, QStringLiteral("huose"), 5, *std::make_unique<QObject>(),
                     [&](const QStringList &) { hasCome = true; });
    ASSERT_TRUE(changed.wait(20000));
    EXPECT_FALSE(hasCome);
}

TEST_F(SpellersTest, WithoutADictionaryThereIsNoSpeller)
{
    EXPECT_EQ(spellers.of(QStringLiteral("qq_QQ")), nullptr);
    EXPECT_EQ(spellers.of(QString()), nullptr);
    EXPECT_FALSE(spellers.findChild<BackgroundTask *>()); // nothing is read
}
