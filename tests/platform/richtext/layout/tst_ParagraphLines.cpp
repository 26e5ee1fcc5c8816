#include "PaintedArea.h"
#include "ParagraphLines.h"
#include "PrintFixture.h"
#include "QuickLayout.h"

#include <QAbstractTextDocumentLayout>
#include <QFileInfo>
#include <QTextList>

namespace {

/// A frame in red, 4 pixels wide, 8 pixels away from the text.
constexpr char frame[] =
    "\\brdrt\\brdrs\\brdrw60\\brsp120\\brdrcf1\\brdrl\\brdrs\\brdrw60\\brsp120\\brdrcf1"
    "\\brdrb\\brdrs\\brdrw60\\brsp120\\brdrcf1\\brdrr\\brdrs\\brdrw60\\brsp120\\brdrcf1 ";

class ParagraphLinesTest : public PrintFixture
{
protected:
    void load(const QByteArray &body)
    {
        box.setTextRTF("{\\rtf1\\ansi{\\colortbl;\\red255\\green0\\blue0;}" + body + '}');
    }
    /// Those in red over a picture of the view, in pixels.
    QRect red()
    {
        const QImage view = box.viewport()->grab().toImage();
        QRect area;
        for (int y = 0; y < view.height(); ++y) {
            for (int x = 0; x < view.width(); ++x) {
                if (view.pixelColor(x, y) == Qt::red)
                    area |= QRect(x, y, 1, 1);
            }
        }
        return area;
    }
    int redIn(int x)
    {
        const QImage view = box.viewport()->grab().toImage();
        int count = 0;
        for (int y = 0; y < view.height(); ++y)
            count += view.pixelColor(x, y) == Qt::red;
        return count;
    }
    /// The stretches of red in the first row that has any.
    int stretchesAbove()
    {
        const QImage view = box.viewport()->grab().toImage();
        const int y = red().top() + 1;
        int count = 0;
        for (int x = 1; x < view.width(); ++x)
            count += view.pixelColor(x, y) == Qt::red && view.pixelColor(x - 1, y) != Qt::red;
        return count;
    }
    QRectF text(int number) { return box.document()->documentLayout()->blockBoundingRect(paragraph(number)); }
};

} // namespace

TEST_F(ParagraphLinesTest, AreAroundTheTextBetweenItsIndents)
{
    load("\\sb480 a\\par\\pard\\sb480\\li1440\\ri720" + QByteArray(frame) + "bbb\\par\\pard\\sb480 c\\par");
    show();
    const QRectF line = paragraph(1).layout()->lineAt(0).rect().translated(text(1).topLeft());
    const QRect lines = red();
    EXPECT_NEAR(lines.left(), 10 + 96 - 12, 1);
    EXPECT_NEAR(lines.right() + 1, box.viewport()->width() - 10 - 48 + 12, 1);
    EXPECT_NEAR(lines.top(), line.top() - 12, 1);
    EXPECT_NEAR(lines.bottom() + 1, line.bottom() + 12, 1);
    EXPECT_EQ(redIn(lines.left() + 20), 8); // the line above and the one below
}

TEST_F(ParagraphLinesTest, OfOneKindAreOneFrame)
{
    load("x\\par\\sb480" + QByteArray(frame) + "a\\par b\\par\\pard c\\par");
    show();
    EXPECT_EQ(redIn(red().left() + 20), 8);
    EXPECT_EQ(redIn(red().left()), red().height()); // without a gap
    load("x\\par\\sb480" + QByteArray(frame) + "a\\par\\li720 b\\par\\pard c\\par");
    EXPECT_EQ(redIn(red().right() - 20), 16);
}

TEST_F(ParagraphLinesTest, WithoutAColourTheyHaveThatOfTheText)
{
    QPalette palette = box.palette();
    palette.setColor(QPalette::Text, Qt::red);
    box.setPalette(palette);
    load("x\\par\\sb480" + QByteArray(frame).replace("\\brdrcf1", {}) + "\\cf0 \\par\\pard");
    show();
    EXPECT_GT(red().width(), box.viewport()->width() / 2);
}

TEST_F(ParagraphLinesTest, BetweenParagraphsOfAFrameMayBeALine)
{
    load("x\\par\\sb480" + QByteArray(frame) +
         "\\brdrbtw\\brdrs\\brdrw30\\brdrcf1 a\\par b\\par\\pard c\\par");
    show();
    EXPECT_EQ(redIn(red().left() + 20), 10);
}

TEST_F(ParagraphLinesTest, StayOutOfTheTextBelow)
{
    load("a" + QByteArray(frame) + "\\par\\pard b\\par");
    show();
    EXPECT_EQ(red().bottom() + 1, qRound(text(1).top()) + 4); // a line's letters begin below that
}

TEST_F(ParagraphLinesTest, GrowWithTheView)
{
    load("\\sb480\\brdrb\\brdrs\\brdrw60\\brdrcf1 a\\par\\pard b\\par");
    show();
    EXPECT_EQ(redIn(100), 4);
    for (int i = 0; i < 5; ++i) // to 200 percent
        QTest::keyClick(&box, Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(redIn(100), 8);
}

TEST_F(ParagraphLinesTest, TheBarIsNotShown)
{
    load("\\brdrbar\\brdrs\\brdrw60\\brdrcf1 a\\par");
    show();
    EXPECT_TRUE(red().isEmpty());
}

TEST_F(ParagraphLinesTest, BeginAtTheIndentWhereTheFirstLineBeginsFarther)
{
    for (const QByteArray &text : {QByteArray("a"), QByteArray("words ").repeated(50)}) {
        load("x\\par\\sb480\\li720\\fi720" + QByteArray(frame) + text + "\\par\\pard c\\par");
        show();
        EXPECT_NEAR(red().left(), 10 + 48 - 12, 1);
    }
}

TEST_F(ParagraphLinesTest, AreAroundTextFromTheRightToo)
{
    for (const char *first : {"\\fi720", "\\fi-360"}) {
        load("x\\par\\sb480\\rtlpar\\li720\\ri720" + QByteArray(first) + QByteArray(frame) +
             "a\\par\\pard c\\par");
        show();
        const int hang = first == QByteArray("\\fi720") ? 0 : 24;
        EXPECT_NEAR(red().right() + 1, box.viewport()->width() - 10 - 48 + hang + 12, 1) << first;
        EXPECT_NEAR(red().left(), 10 + 48 - 12, 1) << first;
    }
}

TEST_F(ParagraphLinesTest, HaveHangingLinesAndTheMarksOfListsInside)
{
    const QByteArray body = "\\sb480\\li720\\fi-360" + QByteArray(frame) + "a\\par\\pard c\\par";
    load("x\\par" + body);
    show();
    EXPECT_NEAR(red().left(), 10 + 24 - 12, 1);
    const QByteArray mark = "x\\par{\\*\\pn\\pnlvlblt{\\pntxtb\\'B7}}";
    for (const QByteArray &item : {body, QByteArray(body).replace("\\fi-360", "\\fi0")}) {
        load(mark + item);
        ASSERT_NE(paragraph(1).textList(), nullptr);
        EXPECT_NEAR(red().left(), 10 + 24 - 12, 1);
    }
}

TEST_F(ParagraphLinesTest, AreDoubleUpToTheirCorners)
{
    load("x\\par\\sb720\\li720\\ri720" + QByteArray(frame).replace("brdrs", "brdrdb") +
         "a\\par\\pard\\sb720 c\\par");
    show();
    const QRect lines = red();
    EXPECT_NEAR(lines.top(), text(1).top() - 20, 1);
    const QImage view = box.viewport()->grab().toImage();
    for (const int in : {1, 9}) {
        const QRect ring = lines.adjusted(in, in, -in, -in);
        for (const QPoint &corner : {ring.topLeft(), ring.topRight(), ring.bottomLeft(), ring.bottomRight()})
            EXPECT_EQ(view.pixelColor(corner), QColor(Qt::red))
                << in << ' ' << corner.x() << ' ' << corner.y();
    }
    EXPECT_EQ(view.pixelColor(lines.topLeft() + QPoint(6, 6)), QColor(Qt::white));
}

TEST_F(ParagraphLinesTest, MayBeDashedOrDotted)
{
    const auto stretches = [this](const char *style) {
        load("x\\par\\sb480\\brdrt\\" + QByteArray(style) + "\\brdrw60\\brdrcf1 a\\par");
        return stretchesAbove();
    };
    show();
    EXPECT_EQ(stretches("brdrs"), 1);
    EXPECT_GT(stretches("brdrdash"), 5);
    EXPECT_GT(stretches("brdrdashd"), stretches("brdrdash"));
    EXPECT_GT(stretches("brdrdot"), stretches("brdrdashd"));
}

TEST_F(ParagraphLinesTest, AreNotWiderThanALineOfTextThoughTheFileSaysSo)
{
    load("a\\par\\sb2400\\brdrt\\brdrs\\brdrw30000\\brdrcf1 b\\par");
    show();
    EXPECT_EQ(red().height(), 16);
    EXPECT_TRUE(box.TextRTF().contains("\\brdrw30000"));
}

TEST_F(ParagraphLinesTest, ArePaintedAnewBesideAParagraphThatChanges)
{
    load("x\\par\\sb480" + QByteArray(frame) + "a\\par b\\par c\\par\\pard d\\par");
    show();
    PaintedArea painted(*box.viewport());
    painted.covers({});
    box.setSelStart(4); // of b
    painted.covers({});
    box.setSelIndent(720);
    EXPECT_TRUE(painted.covers(text(1).toAlignedRect().adjusted(-10, -12, 0, 24)));
}

TEST_F(ParagraphLinesTest, LeaveWhatIsBelowTheViewToTheNextPause)
{
    load(QByteArray(frame) + QByteArray("words\\par ").repeated(3000));
    show();
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return box.document()->lastBlock().layout()->lineCount() > 0; }, 60000));
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(&box, Qt::Key_X);
        box.viewport()->grab();
        EXPECT_EQ(QuickLayout::isBehind(*box.document()), QuickLayout::isAvailable());
    }
}

/// Where Qt hides an empty paragraph, beside the rows.
TEST_F(ParagraphLinesTest, BesideTablesGoAcrossThePage)
{
    const QByteArray table = "\\trowd\\cellx1000\\intbl a\\cell\\row";
    const QByteArray line = "\\pard\\brdrb\\brdrs\\brdrw60\\brdrcf1\\par";
    show();
    for (const QByteArray &body : {table + line + "\\pard b", "b\\par" + line + table + "\\pard c"}) {
        load(body);
        EXPECT_LT(red().left(), 20) << body.constData();
        EXPECT_GT(red().width(), box.viewport()->width() - 40) << body.constData();
    }
}

TEST_F(ParagraphLinesTest, OnPaperHaveAHeightOfTheirOwnBesideTables)
{
    const QByteArray table = "\\trowd\\cellx1000\\intbl a\\cell\\row";
    load(table + "\\pard\\fs60\\brdrb\\brdrs\\brdrw60\\brdrcf1\\par\\pard\\fs24 b\\par");
    print();
    EXPECT_GT(topOf("b"), topOf("a") + 40);
    EXPECT_GT(dots(QRectF(100, topOf("a"), 300, topOf("b") + 10 - topOf("a")), Qt::red), 1000);
    EXPECT_EQ(dots(QRectF(595 - paperMargin + 5, 0, paperMargin - 5, 842), Qt::red), 0);
}

TEST_F(ParagraphLinesTest, OnPaperReachIntoTheMargins)
{
    load("\\paperh3200\\margt1440\\margb1440" + QByteArray(frame) + "a\\par");
    print();
    constexpr double inch = 72;
    EXPECT_GT(dots(QRectF(100, inch - 10, 300, 8), Qt::red), 1000);
    EXPECT_GT(dots(QRectF(100, inch + 14, 300, 10), Qt::red), 1000);
}

TEST_F(ParagraphLinesTest, OnPaperEndWithTheTextBeforeAPageBreak)
{
    load("\\sb480" + QByteArray(frame) + "a\\par\\pagebb b\\par\\pard c\\par");
    ASSERT_EQ(print().size(), 2);
    EXPECT_GT(dots(QRectF(0, paperMargin, 60, 50), Qt::red), 100);
    EXPECT_EQ(dots(QRectF(0, paperMargin + 60, 595, 720), Qt::red), 0);
    EXPECT_EQ(dots(QRectF(0, 0, 60, paperMargin), Qt::red, 2), 0);
}

TEST_F(ParagraphLinesTest, OnPaperEachPageHasItsOwnAlone)
{
    const QByteArray words = "\\sb480 " + QByteArray("word ").repeated(12000) + "\\par";
    const auto printedSize = [this](const QByteArray &body) {
        load(body);
        EXPECT_GT(print().size(), 10);
        return QFileInfo(file()).size();
    };
    EXPECT_LT(printedSize(frame + words), 2 * printedSize(words));
}

TEST_F(ParagraphLinesTest, OnPaperAreAroundHeaders)
{
    load("{\\header\\brdrb\\brdrs\\brdrw60\\brdrcf1 head\\par}a\\par");
    print();
    EXPECT_GT(dots(QRectF(0, 0, 595, paperMargin + 20), Qt::red), 1000);
}

TEST_F(ParagraphLinesTest, AreOnPaperOnEachPageOfTheirParagraph)
{
    load("\\sb480" + QByteArray(frame) + QByteArray("word ").repeated(2000) + "\\par\\pard c\\par");
    ASSERT_GT(print().size(), 1);
    const QRectF leftEdge(paperMargin - 10, 0, 10, 842);
    for (int page : {1, 2})
        EXPECT_GT(dots(leftEdge, Qt::red, page), 1000) << page;
}
