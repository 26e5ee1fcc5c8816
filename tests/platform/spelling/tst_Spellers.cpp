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
    QSignalSpy loaded{&spellers, &Spellers::loaded};

    Speller *waitFor(const char *language)
    {
        if (Speller *speller = spellers.of(QString::fromLatin1(language)))
            return speller;
        EXPECT_TRUE(loaded.wait(20000));
        return spellers.of(QString::fromLatin1(language));
    }
};

} // namespace

TEST_F(SpellersTest, ADictionaryIsReadInTheBackground)
{
    addDictionary(home, QStringLiteral("qq_QQ"), "UTF-8", {"house"});
    EXPECT_EQ(spellers.of(QStringLiteral("qq_QQ")), nullptr);
    ASSERT_TRUE(loaded.wait(20000));
    ASSERT_TRUE(spellers.of(QStringLiteral("qq_QQ")));
    EXPECT_TRUE(spellers.of(QStringLiteral("qq_QQ"))->knows(QStringLiteral("house")));
    EXPECT_EQ(loaded.size(), 1);
}

TEST_F(SpellersTest, AnotherCountrysDictionaryIsBetterThanNone)
{
    addDictionary(home, QStringLiteral("qq_AA"), "UTF-8", {"house"});
    Speller *other = waitFor("qq_QQ");
    ASSERT_TRUE(other);
    EXPECT_EQ(waitFor("qq_AA"), other);
    EXPECT_EQ(loaded.size(), 1);
}

TEST_F(SpellersTest, TheCountrysOwnDictionaryIsTakenFirst)
{
    addDictionary(home, QStringLiteral("qq_AA"), "UTF-8", {"color"});
    addDictionary(home, QStringLiteral("qq_QQ"), "UTF-8", {"colour"});
    ASSERT_TRUE(waitFor("qq_QQ"));
    EXPECT_TRUE(waitFor("qq_QQ")->knows(QStringLiteral("colour")));
    EXPECT_FALSE(waitFor("qq_QQ")->knows(QStringLiteral("color")));
}

TEST_F(SpellersTest, WithoutADictionaryThereIsNoSpeller)
{
    EXPECT_EQ(spellers.of(QStringLiteral("qq_QQ")), nullptr);
    EXPECT_EQ(spellers.of(QString()), nullptr);
    EXPECT_FALSE(spellers.findChild<BackgroundTask *>()); // nothing is read
}
