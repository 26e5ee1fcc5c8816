#include "FileIcons.h"
#include "HostileNames.h"
#include "PrintQt.h"

#include <gtest/gtest.h>

namespace {

QImage imageOf(const QIcon &icon)
{
    return icon.pixmap(16).toImage();
}

} // namespace

TEST(FileIconsTest, BeginsWithTheDefault)
{
    const FileIcons icons;
    EXPECT_EQ(icons.count(), 1);
    EXPECT_FALSE(icons.icon(QStringLiteral("DEFAULT")).isNull());
    EXPECT_EQ(icons.tag(QStringLiteral("DEFAULT")), QString());
}

TEST(FileIconsTest, OneEntryForEachExtension)
{
    FileIcons icons;
    EXPECT_EQ(icons.keyOf(QStringLiteral("one.txt")), QStringLiteral(".TXT"));
    EXPECT_EQ(icons.keyOf(QStringLiteral("two.Txt")), QStringLiteral(".TXT"));
    EXPECT_EQ(icons.count(), 2);
    EXPECT_EQ(icons.keyOf(QStringLiteral("a.tar.gz")), QStringLiteral(".GZ"));
    EXPECT_EQ(icons.count(), 3);
}

TEST(FileIconsTest, ANameWithoutADotTakesTheDefault)
{
    FileIcons icons;
    EXPECT_EQ(icons.keyOf(QStringLiteral("README")), QStringLiteral("DEFAULT"));
    EXPECT_EQ(icons.keyOf(QString()), QStringLiteral("DEFAULT"));
    EXPECT_EQ(icons.count(), 1);
}

TEST(FileIconsTest, ProgramsHaveAnEntryAsAllOthers)
{
    FileIcons icons;
    EXPECT_EQ(icons.keyOf(QStringLiteral("setup.exe")), QStringLiteral(".EXE"));
    EXPECT_EQ(icons.count(), 2);
    EXPECT_FALSE(icons.icon(QStringLiteral(".EXE")).isNull());
}

TEST(FileIconsTest, KindsHaveIconsOfTheirOwnAndATag)
{
    FileIcons icons;
    for (const char *name : {"a.txt", "a.png", "a.zip", "a.nothing-known"})
        icons.keyOf(QString::fromLatin1(name));
    EXPECT_NE(imageOf(icons.icon(QStringLiteral(".PNG"))), imageOf(icons.icon(QStringLiteral(".TXT"))));
    EXPECT_NE(imageOf(icons.icon(QStringLiteral(".ZIP"))), imageOf(icons.icon(QStringLiteral(".PNG"))));
    EXPECT_FALSE(icons.icon(QStringLiteral(".NOTHING-KNOWN")).isNull());
    EXPECT_FALSE(icons.tag(QStringLiteral(".PNG")).isEmpty());
    EXPECT_NE(icons.tag(QStringLiteral(".PNG")), icons.tag(QStringLiteral(".TXT")));
}

TEST(FileIconsTest, AnyExtensionHasAnIcon)
{
    FileIcons icons;
    for (const HostileName &name : HostileNames::all()) {
        const QString key = icons.keyOf(QStringLiteral("a.") + name.text());
        EXPECT_FALSE(icons.icon(key).isNull()) << name.what;
    }
}

TEST(FileIconsTest, AnUnknownKeyHasNone)
{
    const FileIcons icons;
    EXPECT_TRUE(icons.icon(QStringLiteral(".TXT")).isNull());
}
