#include "RichTextFixture.h"
#include "RtfWriter.h"

#include <QTextTable>

namespace {

/// Two rows of two cells, the second with a line and a shade.
class CellKeysTest : public RichTextFixture
{
protected:
    CellKeysTest()
    {
        box.setTextRTF("{\\rtf1{\\colortbl;\\red0\\green0\\blue255;}x\\par "
                       "\\trowd\\cellx1000\\cellx2000\\intbl one\\cell two\\cell\\row"
                       "\\trowd\\clbrdrb\\brdrs\\brdrw15\\clcbpat1\\cellx1000\\cellx2000\\qc\\b\\intbl "
                       "three\\cell four\\cell\\row\\pard end\\par}");
        show();
    }
    void placeIn(const QString &text)
    {
        QTextCursor caret = box.document()->find(text);
        caret.setPosition(caret.position());
        box.setTextCursor(caret);
    }
    QString cell() { return box.textCursor().block().text(); }
    QTextTable &table()
    {
        return *qobject_cast<QTextTable *>(box.document()->rootFrame()->childFrames().constFirst());
    }
};

} // namespace

TEST_F(CellKeysTest, TabGoesToTheNextCell)
{
    placeIn(QStringLiteral("one"));
    for (const char *next : {"two", "three", "four"}) {
        QTest::keyClick(&box, Qt::Key_Tab);
        EXPECT_EQ(cell(), QLatin1String(next));
        EXPECT_TRUE(box.textCursor().atBlockStart());
    }
    EXPECT_FALSE(box.document()->isUndoAvailable());
}

TEST_F(CellKeysTest, ShiftTabGoesBackToTheFirst)
{
    placeIn(QStringLiteral("three"));
    for (const char *next : {"two", "one", "one"}) {
        QTest::keyClick(&box, Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(cell(), QLatin1String(next));
    }
}

TEST_F(CellKeysTest, TabInTheLastCellAddsARowAsTheLastOne)
{
    placeIn(QStringLiteral("four"));
    const QByteArray before = RtfWriter::write(*box.document());
    QTest::keyClick(&box, Qt::Key_Tab);
    ASSERT_EQ(table().rows(), 3);
    EXPECT_EQ(table().cellAt(box.textCursor()).row(), 2);
    EXPECT_EQ(table().cellAt(box.textCursor()).column(), 0);
    QTest::keyClicks(&box, QStringLiteral("five"));
    QTest::keyClick(&box, Qt::Key_Tab);
    EXPECT_EQ(table().cellAt(box.textCursor()).column(), 1);
    const QByteArray written = RtfWriter::write(*box.document());
    EXPECT_EQ(written.count("\\clbrdrb\\brdrs\\brdrw15"), 2) << written.constData();
    EXPECT_TRUE(written.contains("\\b five\\cell")) << written.constData();
    EXPECT_EQ(box.textCursor().blockFormat().alignment(), Qt::AlignHCenter);
    while (box.document()->isUndoAvailable())
        box.undo();
    EXPECT_EQ(RtfWriter::write(*box.document()).toStdString(), before.toStdString());
}

TEST_F(CellKeysTest, TabIsATabElsewhereAndWithControl)
{
    placeIn(QStringLiteral("x"));
    QTest::keyClick(&box, Qt::Key_Tab);
    EXPECT_EQ(cell(), QStringLiteral("x\t"));
}

TEST_F(CellKeysTest, ALockedTableGetsNoRow)
{
    placeIn(QStringLiteral("four"));
    box.setLocked(true);
    QTest::keyClick(&box, Qt::Key_Tab);
    EXPECT_EQ(table().rows(), 2);
}

TEST_F(CellKeysTest, ANewRowDoesNotBeginThePageThatTheLastOneBegins)
{
    box.setTextRTF("{\\rtf1\\trowd\\cellx1000\\intbl\\qc\\pagebb a\\cell\\row\\pard end\\par}");
    box.setTextCursor(table().cellAt(0, 0).firstCursorPosition());
    QTest::keyClick(&box, Qt::Key_Tab);
    ASSERT_EQ(table().rows(), 2);
    const QTextBlockFormat format = table().cellAt(1, 0).firstCursorPosition().blockFormat();
    EXPECT_EQ(format.pageBreakPolicy(), QTextFormat::PageBreak_Auto);
    EXPECT_TRUE(format.alignment().testFlag(Qt::AlignHCenter));
}
