#include "PrintFixture.h"

#include <QBuffer>
#include <QTextTable>

namespace {

class PrintedTables : public PrintFixture
{
protected:
    /// 800 by 400 pixels, 600 points wide.
    QByteArray widePicture() const
    {
        QImage image(800, 400, QImage::Format_RGB32);
        image.fill(Qt::red);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        image.save(&buffer, "PNG");
        return "{\\pict\\pngblip\\picwgoal12000\\pichgoal6000 " + bytes.toHex() + "}";
    }
    int pictureWidth() { return pdf.pictureSizes().value(0).width(); }
    /// The width of a line without indents, in points.
    static constexpr double column = 595.3 - 2 * paperMargin;
};

} // namespace

TEST_F(PrintedTables, AWidePictureKeepsItsSidesWithinIndents)
{
    box.setTextRTF("{\\rtf1\\li1440\\ri720 " + widePicture() + "}");
    print();
    EXPECT_NEAR(pictureWidth(), column - 108, 2);
    EXPECT_NEAR(pdf.pictureSizes().value(0).height(), pictureWidth() / 2, 1);
    box.setTextRTF("{\\rtf1\\fi1440 " + widePicture() + "}");
    print();
    EXPECT_NEAR(pictureWidth(), column - 72, 2);
    box.setTextRTF("{\\rtf1\\fi-1440\\li1440 " + widePicture() + "}");
    print();
    EXPECT_NEAR(pictureWidth(), column - 72, 2); // the line that it is in may be any
}

TEST_F(PrintedTables, AWidePictureStaysInItsCell)
{
    box.setTextRTF("{\\rtf1\\trowd\\trgaph144\\cellx2880\\cellx5760\\intbl " + widePicture() +
                   "\\cell behind\\cell\\row\\pard}");
    print();
    EXPECT_NEAR(pictureWidth(), (2880 - 288) / 20, 2);
    EXPECT_NEAR(leftOf("behind"), paperMargin + (2880 + 144) / 20, 2);
    box.setTextRTF("{\\rtf1\\trowd\\clmgf\\cellx2880\\clmrg\\cellx5760\\cellx8000\\intbl\\li720 " +
                   widePicture() + "\\cell\\cell behind\\cell\\row\\pard}");
    print();
    EXPECT_NEAR(pictureWidth(), (5760 - 720) / 20, 2);
}

TEST_F(PrintedTables, AWidePictureStaysInTheCellOfAnInnerTable)
{
    box.setTextRTF("{\\rtf1\\trowd\\cellx5760\\cellx8640\\intbl\\itap2 " + widePicture() +
                   "\\nestcell inner\\nestcell{\\*\\nesttableprops\\trowd\\cellx2000\\cellx4000\\nestrow}"
                   "\\pard\\intbl\\cell behind\\cell\\row\\pard}");
    print();
    EXPECT_NEAR(pictureWidth(), 100, 2);
    EXPECT_NEAR(leftOf("inner"), paperMargin + 100, 2);
    EXPECT_NEAR(leftOf("behind"), paperMargin + 288, 2);
}

TEST_F(PrintedTables, APictureInATableWithoutWidthsHasItsShare)
{
    box.setText({});
    QTextTable *table = box.textCursor().insertTable(1, 4);
    QTextCursor cursor = table->cellAt(0, 1).firstCursorPosition();
    QImage image(800, 400, QImage::Format_RGB32);
    image.fill(Qt::red);
    Pictures::insert(cursor, image, 1e6);
    print();
    EXPECT_LE(pictureWidth(), column / 4);
    EXPECT_GT(pictureWidth(), column / 4 - 12);
}

TEST_F(PrintedTables, CellsKeepTheirPadding)
{
    box.setTextRTF("{\\rtf1\\pard top\\par\\trowd\\trgaph216\\cellx2880"
                   "\\clpadfl3\\clpadl720\\clpadft3\\clpadt1440\\clpadfr3\\clpadr360\\cellx8640"
                   "\\intbl one\\cell two\\par\\qr three\\cell\\row\\pard below\\par}");
    print();
    EXPECT_NEAR(leftOf("one"), paperMargin + 10.8, 1);
    EXPECT_NEAR(leftOf("two"), paperMargin + 144 + 72, 1);
    EXPECT_NEAR(topOf("two") - topOf("one"), 36, 1);
    EXPECT_NEAR(pdf.placeOf(QStringLiteral("three")).right(), paperMargin + 432 - 18, 1);
    EXPECT_NEAR(topOf("one") - pdf.placeOf(QStringLiteral("top")).bottom(), 0, 2); // no gap above
}

TEST_F(PrintedTables, ATableMayHangOutOfTheMargin)
{
    box.setTextRTF(
        "{\\rtf1\\pard text\\par\\trowd\\trgaph108\\trleft-108\\cellx2880\\intbl cell\\cell\\row\\pard}");
    print();
    EXPECT_NEAR(leftOf("cell"), leftOf("text"), 0.5);
}

TEST_F(PrintedTables, SpaceAroundParagraphsIsInCellsToo)
{
    box.setTextRTF(
        "{\\rtf1 \\trowd\\cellx2880\\intbl one\\cell\\row\\trowd\\cellx2880\\intbl two\\cell\\row\\pard}");
    print();
    const double close = topOf("two") - topOf("one");
    box.setTextRTF("{\\rtf1 \\trowd\\cellx2880\\intbl\\sa400 one\\cell\\row"
                   "\\trowd\\cellx2880\\intbl\\sb600\\sa0 two\\cell\\row\\pard}");
    print();
    EXPECT_NEAR(topOf("two") - topOf("one"), close + 20 + 30, 1);
}

TEST_F(PrintedTables, SpaceAroundATable)
{
    const auto rtf = [](int after, int before) {
        const QByteArray lines = "\\clbrdrt\\brdrs\\brdrw20\\clbrdrb\\brdrs\\brdrw20";
        return "{\\rtf1\\sa" + QByteArray::number(after) + " above\\par\\pard\\trowd" + lines +
               "\\cellx2880\\intbl cell\\cell\\row\\pard\\sb" + QByteArray::number(before) + " below\\par}";
    };
    box.setTextRTF(rtf(0, 0));
    print();
    const double above = topOf("cell") - topOf("above");
    const double below = topOf("below") - topOf("cell");
    box.setTextRTF(rtf(400, 600));
    print();
    EXPECT_NEAR(topOf("cell") - topOf("above"), above + 20, 1);
    EXPECT_NEAR(topOf("below") - topOf("cell"), below + 30, 1);
}

TEST_F(PrintedTables, ATableWithSpaceAroundItIsClosedAtThePagesEdge)
{
    QByteArray row = "\\trowd";
    for (const char *edge : {"\\clbrdrt", "\\clbrdrl", "\\clbrdrb", "\\clbrdrr"})
        row += edge + QByteArray("\\brdrs\\brdrw30");
    row += "\\cellx2880\\intbl " + QByteArray("line\\par ").repeated(80) + "\\cell\\row";
    box.setTextRTF("{\\rtf1\\sa400 start\\par\\pard " + row + "\\pard\\sb400 end\\par}");
    ASSERT_EQ(print().size(), 2);
    EXPECT_GT(dots(QRectF(paperMargin + 100, 842 - paperMargin - 4.5, 10, 4.5), Qt::black, 1), 100);
    EXPECT_GT(dots(QRectF(paperMargin + 100, paperMargin, 10, 4.5), Qt::black, 2), 100);
}

TEST_F(PrintedTables, ParagraphsAreApartByTheSpaceOfBoth)
{
    box.setTextRTF("{\\rtf1 one\\par two\\par}");
    const double close = (print(), topOf("two") - topOf("one"));
    box.setTextRTF("{\\rtf1\\sa400 one\\par\\sa0\\sb600 two\\par}");
    print();
    EXPECT_NEAR(topOf("two") - topOf("one"), close + 20 + 30, 1);
    box.document()->setHtml(
        QStringLiteral("<p style='margin:0 0 40px 0'>one</p><p style='margin:60px 0 0 0'>two</p>"));
    print();
    EXPECT_NEAR(topOf("two") - topOf("one"), close + 45, 3);
}
