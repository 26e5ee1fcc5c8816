#include "HostileNames.h"
#include "PrintQt.h"
#include "ZipTexts.h"

#include <gtest/gtest.h>

TEST(ZipTextsTest, CountsAndNamesTheArchive)
{
    EXPECT_EQ(ZipTexts::zipped(3, QStringLiteral("/home/a.zip")),
              QStringLiteral("Zipped 3 file(s).\n\n   To: /home/a.zip"));
}

TEST(ZipTextsTest, NamesFolderAndArchive)
{
    EXPECT_EQ(ZipTexts::zippedBelow(QStringLiteral("/app"), QStringLiteral("/app/Test_Rec.zip")),
              QStringLiteral("Zipped files.\n\n   Source: files matching *.fr*;*.cls;*.bas from /app\n"
                             "   To: /app/Test_Rec.zip"));
}

TEST(ZipTextsTest, NoNameIsRead)
{
    for (const HostileName &name : HostileNames::all()) {
        EXPECT_EQ(ZipTexts::zipped(1, name.text()),
                  QStringLiteral("Zipped 1 file(s).\n\n   To: ") + name.text());
        EXPECT_EQ(ZipTexts::zippedBelow(name.text(), name.text()),
                  QStringLiteral("Zipped files.\n\n   Source: files matching *.fr*;*.cls;*.bas from ") +
                      name.text() + QStringLiteral("\n   To: ") + name.text());
    }
}
