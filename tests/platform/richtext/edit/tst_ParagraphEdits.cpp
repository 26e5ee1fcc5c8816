#include "ParagraphFormat.h"
#include "RichTextFixture.h"

#include <QTextList>

namespace {

/// A paragraph, a table of three rows of two cells that are not alike, and a paragraph.
class ParagraphEditsInTables : public RichTextFixture
{
protected:
    ParagraphEditsInTables()
    {
        const QByteArray row = "\\trowd\\cellx1000\\cellx2000\\pard\\intbl";
        box.setTextRTF("{\\rtf1 before\\par" + row + "\\qc 1\\cell\\pard\\intbl 2\\cell\\row" + row +
                       "{\\pntext 1.\\tab}{\\*\\pn\\pnlvlbody\\pndec\\pnstart1{\\pntxta "
                       ".}}3\\cell\\pard\\intbl 4\\cell\\row" +
                       row + " 5\\cell 6\\cell\\row\\pard behind\\par}");
    }
    QTextBlock of(const char *text) const { return box.document()->find(QLatin1String(text)).block(); }
    QTextBlockFormat format(const char *text) const { return of(text).blockFormat(); }
};

constexpr const char *cells[] = {"1", "2", "3", "4", "5", "6"};

} // namespace

TEST_F(ParagraphEditsInTables, AnIndentOfEverythingLeavesTheRestOfEachLook)
{
    box.selectAll();
    box.setSelIndent(720);
    box.setSelRightIndent(300);
    for (const char *text : {"before", "1", "2", "3", "4", "5", "6", "behind"}) {
        EXPECT_EQ(ParagraphFormat::rightIndent(format(text)), 300) << text;
        EXPECT_EQ(ParagraphFormat::leftIndent(format(text)) + ParagraphFormat::firstLineIndent(format(text)),
                  720)
            << text;
        EXPECT_EQ(format(text).alignment().testFlag(Qt::AlignHCenter), format("1") == format(text)) << text;
        EXPECT_EQ(of(text).textList() != nullptr, of(text) == of("3")) << text;
    }
}

TEST_F(ParagraphEditsInTables, AnIndentOfACellIsThatCellsAlone)
{
    select(of("4").position(), of("4").position() + 1);
    box.setSelIndent(720);
    for (const char *text : cells)
        EXPECT_EQ(ParagraphFormat::leftIndent(format(text)), of(text) == of("4") ? 720 : 0) << text;
}

TEST_F(ParagraphEditsInTables, BulletsComeToAllCellsThatAreSelected)
{
    select(of("1").position(), of("4").position() + 1);
    box.setSelBullet(true);
    for (const char *text : {"1", "2", "4"}) {
        ASSERT_TRUE(of(text).textList()) << text;
        EXPECT_EQ(of(text).textList()->format().style(), QTextListFormat::ListDisc) << text;
    }
    EXPECT_TRUE(format("1").alignment().testFlag(Qt::AlignHCenter));
    EXPECT_FALSE(format("2").alignment().testFlag(Qt::AlignHCenter));
    EXPECT_FALSE(of("5").textList());
    EXPECT_FALSE(of("before").textList());
}
