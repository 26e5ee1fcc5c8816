#include "RichTextFixture.h"
#include "RtfWriter.h"

namespace {

/// A cell with text, and an empty one with a shade and a line.
class CellTextTest : public RichTextFixture
{
protected:
    CellTextTest()
    {
        box.setTextRTF(
            "{\\rtf1{\\colortbl;\\red0\\green0\\blue255;}\\trowd\\cellx1000\\clvertalc\\clcbpat1\\clbrdrb"
            "\\brdrs\\cellx2000\\intbl one\\cell\\b\\fs30\\cell\\row\\pard end\\par}");
        show();
        QTextCursor caret = box.document()->find(QStringLiteral("one"));
        caret.setPosition(caret.position() + 1);
        box.setTextCursor(caret);
    }
    QByteArray written() { return RtfWriter::write(*box.document()); }
};

} // namespace

TEST_F(CellTextTest, TypedTextHasTheFontAndNotTheShadeOfTheCell)
{
    QTest::keyClicks(&box, QStringLiteral("two"));
    EXPECT_TRUE(written().contains("\\fs30\\b two\\cell")) << written().constData();
    EXPECT_TRUE(written().contains("\\clcbpat1\\cellx2000")) << written().constData();
}

TEST_F(CellTextTest, TextTypedAgainHasNoneEither)
{
    QTest::keyClicks(&box, QStringLiteral("x"));
    QTest::keyClick(&box, Qt::Key_Backspace);
    QTest::keyClicks(&box, QStringLiteral("two"));
    EXPECT_TRUE(written().contains("\\fs30\\b two\\cell")) << written().constData();
}

TEST_F(CellTextTest, TheParagraphBelowHasNoneEither)
{
    QTest::keyClick(&box, Qt::Key_Return);
    QTest::keyClicks(&box, QStringLiteral("two"));
    EXPECT_FALSE(written().contains("highlight")) << written().constData();
}

TEST_F(CellTextTest, ALookThatIsChosenStays)
{
    box.setSelBold(false);
    QTest::keyClicks(&box, QStringLiteral("two"));
    EXPECT_TRUE(written().contains("\\fs30 two\\cell")) << written().constData();
}
