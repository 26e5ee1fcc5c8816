#include "ErrorNumberOf.h"
#include "Files.h"
#include "FullDisk.h"
#include "ParagraphFormat.h"
#include "PrintFixture.h"
#include "PrintJob.h"
#include "QtMessages.h"
#include "QuickLayout.h"

#include <QPainter>
#include <QTextList>
#include <QTextTable>

namespace {

class Print : public PrintFixture
{};

} // namespace

TEST_F(Print, PrintsEverythingWithoutASelection)
{
    box.setText(QStringLiteral("one\ntwo"));
    const QStringList pages = print();
    ASSERT_EQ(pages.size(), 1);
    EXPECT_TRUE(pages.first().contains(QStringLiteral("one")));
    EXPECT_TRUE(pages.first().contains(QStringLiteral("two")));
}

TEST_F(Print, PrintsTheSelectionAlone)
{
    box.setText(QStringLiteral("one two three"));
    select(4, 7);
    const QStringList pages = print();
    ASSERT_EQ(pages.size(), 1);
    EXPECT_EQ(pages.first().trimmed(), QStringLiteral("two"));
    EXPECT_EQ(box.SelText(), QStringLiteral("two"));
}

TEST_F(Print, FillsPages)
{
    box.setText(QStringLiteral("line\n").repeated(150) + QStringLiteral("last"));
    const QStringList pages = print();
    ASSERT_GE(pages.size(), 3);
    EXPECT_FALSE(pages.first().contains(QStringLiteral("last")));
    EXPECT_TRUE(pages.last().contains(QStringLiteral("last")));
}

TEST_F(Print, TheLastPageComesFirstWhereAskedFor)
{
    box.setText(QStringLiteral("first\n") + QStringLiteral("line\n").repeated(100) + QStringLiteral("last"));
    printer.setPageOrder(QPrinter::LastPageFirst);
    const QStringList pages = print();
    ASSERT_EQ(pages.size(), 2);
    EXPECT_TRUE(pages.first().contains(QStringLiteral("last")));
    EXPECT_TRUE(pages.last().contains(QStringLiteral("first")));
}

TEST_F(Print, CopiesAreInTheFile)
{
    box.setText(QStringLiteral("first\n") + QStringLiteral("line\n").repeated(100) + QStringLiteral("last"));
    const auto printed = [&] {
        QString order;
        for (const QString &page : print())
            order += page.contains(QStringLiteral("first")) ? u'f' : u'l';
        return order.toStdString();
    };
    printer.setCopyCount(3);
    printer.setCollateCopies(true);
    EXPECT_EQ(printed(), "flflfl");
    printer.setCollateCopies(false);
    EXPECT_EQ(printed(), "ffflll");
    printer.setPageOrder(QPrinter::LastPageFirst);
    EXPECT_EQ(printed(), "lllfff");
}

TEST_F(Print, AnInchIsAnInchAtAnyResolution)
{
    box.setText(QStringLiteral("zero\ninch"));
    box.setSelStart(6);
    box.setSelIndent(1440);
    box.setSelStart(0);
    for (const int resolution : {96, 300, 1200}) {
        printer.setResolution(resolution);
        print();
        EXPECT_NEAR(leftOf("zero"), paperMargin, 1) << resolution;
        EXPECT_NEAR(leftOf("inch"), paperMargin + 72, 1) << resolution;
    }
}

TEST_F(Print, AnEnlargedViewPrintsThePagesThatItPrintedBefore)
{
    box.setText(QStringLiteral("zero\ninch"));
    box.setSelStart(6);
    box.setSelIndent(1440);
    box.setSelStart(0);
    for (int i = 0; i < 5; ++i)
        QTest::keyClick(&box, Qt::Key_Plus, Qt::ControlModifier);
    print();
    EXPECT_NEAR(leftOf("inch"), paperMargin + 72, 1);
}

TEST_F(Print, DocumentsOfOneJobAreItsPages)
{
    const double margin = 100 / 20.0; // points
    PrintJob job(printer);
    for (const char *words : {"one\\page two", "three"}) {
        box.setTextRTF(QByteArray("{\\rtf1\\paperw8000\\paperh6000\\margl100 ") + words + '}');
        box.setSelStart(0);
        box.SelPrint(job);
    }
    box.setSelLength(3);
    box.SelPrint(job); // the selection
    job.finish();
    EXPECT_EQ(pdf.pages().join(u'|').simplified().remove(u' '), QStringLiteral("one|two|three|thr"));
    EXPECT_NEAR(pdf.placeOf(QStringLiteral("one"), 1).left(), margin, 1); // the document's margin
    EXPECT_NEAR(pdf.paper().width(), 595, 1);                             // the printer's paper
}

TEST_F(Print, HangingLinesAndBulletsKeepTheirPlace)
{
    box.setText(QStringLiteral("item\nfirst"));
    box.setBulletIndent(1200);
    box.setSelBullet(true);
    box.setSelStart(6);
    QTextBlockFormat format;
    ParagraphFormat::setIndents(format, 0, 0, 720);
    box.textCursor().mergeBlockFormat(format);
    box.setSelStart(0);
    print();
    EXPECT_NEAR(leftOf("item"), paperMargin + 72, 1);
    EXPECT_NEAR(leftOf("first"), paperMargin + 36, 1);
}

TEST_F(Print, HollowBulletsHaveALineAsOnTheScreen)
{
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        for (const bool isInCell : {false, true}) {
            box.setText({});
            QTextCursor cursor = box.textCursor();
            if (isInCell) {
                QTextTable &table = *cursor.insertTable(1, 2);
                cursor = table.cellAt(0, 1).firstCursorPosition();
            }
            cursor.createList(QTextListFormat::ListCircle);
            QTextBlockFormat format;
            format.setLayoutDirection(direction);
            cursor.mergeBlockFormat(format);
            cursor.insertText(QStringLiteral("item"));
            print();
            const QRectF word = pdf.placeOf(QStringLiteral("item"));
            const QRectF before =
                word.translated(direction == Qt::LeftToRight ? -word.width() : word.width(), 0);
            EXPECT_GT(dots(before, Qt::black), 100) << direction << isInCell;
            EXPECT_LT(dots(before, Qt::black), 150) << direction << isInCell;
        }
    }
}

TEST_F(Print, SpaceBetweenParagraphsIsScaled)
{
    box.setText(QStringLiteral("one\ntwo"));
    const double close = (print(), topOf("two") - topOf("one"));
    QTextBlockFormat format;
    ParagraphFormat::setSpacing(format, 0, 1440);
    box.textCursor().mergeBlockFormat(format);
    print();
    EXPECT_NEAR(topOf("two") - topOf("one"), close + 72, 1);
}

TEST_F(Print, LineSpacingIsScaled)
{
    box.setText(QStringLiteral("one\ntwo"));
    QTextBlockFormat format;
    ParagraphFormat::setLineSpacing(format, -480, false);
    QTextCursor all(box.document());
    all.select(QTextCursor::Document);
    all.mergeBlockFormat(format);
    print();
    EXPECT_NEAR(topOf("two") - topOf("one"), 24, 1);
}

TEST_F(Print, CellsOfATableStandApartAsOnTheScreen)
{
    box.setText({});
    auto *table = box.textCursor().insertTable(1, 2);
    QTextTableFormat format;
    format.setColumnWidthConstraints(
        {QTextLength(QTextLength::FixedLength, 192), QTextLength(QTextLength::FixedLength, 96)});
    format.setCellPadding(0);
    format.setCellSpacing(0);
    format.setBorder(0);
    table->setFormat(format);
    table->cellAt(0, 0).firstCursorPosition().insertText(QStringLiteral("one"));
    table->cellAt(0, 1).firstCursorPosition().insertText(QStringLiteral("two"));
    box.setSelStart(0);
    print();
    EXPECT_NEAR(leftOf("two") - leftOf("one"), 144, 2);
}

TEST_F(Print, TheShownTextStaysAsItIs)
{
    box.setText(QStringLiteral("one\ntwo"));
    box.setSelIndent(700);
    const QByteArray before = box.TextRTF();
    const QSignalSpy changes(&box, &RichTextBox::Change);
    print();
    EXPECT_EQ(box.TextRTF(), before);
    EXPECT_EQ(changes.size(), 0);
}

TEST_F(Print, WithoutADeviceNothingHappens)
{
    box.setText(QStringLiteral("one"));
    box.SelPrint(nullptr);
    EXPECT_EQ(box.Text(), QStringLiteral("one"));
}

TEST_F(Print, TextIsAsLargeAsItsPointsSay)
{
    const auto widthOf = [&](const QString &word, double points) {
        box.setText(word);
        select(0, 1000);
        box.setSelFontName(QStringLiteral("Liberation Sans"));
        box.setSelFontSize(points);
        QFont hinted = box.document()->defaultFont();
        hinted.setHintingPreference(QFont::PreferFullHinting); // as some desktops have it
        box.document()->setDefaultFont(hinted);
        box.setSelStart(0);
        print();
        return pdf.placeOf(word).width();
    };
    constexpr double widthOfM = 0.833; // of the size
    constexpr double widthOfI = 0.222;
    EXPECT_NEAR(widthOf(QString(10, u'M'), 11), 10 * widthOfM * 11, 0.5);
    EXPECT_NEAR(widthOf(QString(100, u'i'), 10.5), 100 * widthOfI * 10.5, 0.5);
}

TEST_F(Print, ASelectionKeepsItsFormats)
{
    box.setTextRTF("{\\rtf1{\\fonttbl{\\f0 Liberation Serif;}}{\\colortbl;\\red0\\green0\\blue255;}"
                   "\\f0 plain \\b\\cf1 strong\\b0 , plain}");
    select(6, 12);
    EXPECT_EQ(print().join(QString()).trimmed(), QStringLiteral("strong"));
    EXPECT_EQ(pdf.fonts().value(0), QStringLiteral("LiberationSerif-Bold"));
    EXPECT_GT(dots(QRectF(QPointF(), pdf.paper()), Qt::blue), 100);
}

TEST_F(Print, SmallCapitalsAreAsLargeAsOnTheScreen)
{
    box.setTextRTF(
        "{\\rtf1{\\fonttbl{\\f0 Liberation Sans;}}\\f0\\fs40\\scaps mmmm\\par MMMMM\\par M1m\\par}");
    EXPECT_EQ(print().join(QString()).simplified(), QStringLiteral("MMMM MMMMM M1M"));
    constexpr double widthOfM = 0.833; // of the size
    EXPECT_NEAR(pdf.placeOf(QStringLiteral("MMMM")).width(), 4 * widthOfM * 20 * 0.7, 0.5);
    EXPECT_NEAR(pdf.placeOf(QStringLiteral("MMMMM")).width(), 5 * widthOfM * 20, 0.5);
}

TEST_F(Print, TabsStandWhereTheyAre)
{
    box.setTextRTF("{\\rtf1\\tx2880\\tqr\\tx5760 a\\tab left\\tab right}");
    print();
    EXPECT_NEAR(leftOf("left"), paperMargin + 144, 1);
    EXPECT_NEAR(pdf.placeOf(QStringLiteral("right")).right(), paperMargin + 288, 1);
}

TEST_F(Print, APictureKeepsItsSize)
{
    box.setText({});
    insertPicture(96, 48);
    print();
    EXPECT_EQ(pdf.pictureSizes(), QList<QSize>{QSize(72, 36)});
}

TEST_F(Print, APictureLargerThanThePageIsShrunkToIt)
{
    const QSizeF page(595 - 2 * paperMargin, 842 - 2 * paperMargin);
    for (const QSize &size : {QSize(2000, 1000), QSize(700, 3000)}) {
        box.setText({});
        insertPicture(size.width(), size.height());
        EXPECT_EQ(print().size(), 1);
        ASSERT_EQ(pdf.pictureSizes().size(), 1);
        const QSizeF shown = pdf.pictureSizes().first();
        EXPECT_LE(shown.width(), page.width() + 1);
        EXPECT_LE(shown.height(), page.height());
        EXPECT_NEAR(shown.width() / shown.height(), double(size.width()) / size.height(), 0.02);
        EXPECT_GT(qMax(shown.width() / page.width(), shown.height() / page.height()), 0.95);
    }
}

TEST_F(Print, APictureLeavesTheRoomOfOneLine)
{
    constexpr double points = 40;
    box.setText({});
    insertPicture(700, 3000);
    box.selectAll();
    box.setSelFontSize(points);
    box.setSelStart(0);
    EXPECT_EQ(print().size(), 1);
    ASSERT_EQ(pdf.pictureSizes().size(), 1);
    EXPECT_NEAR(pdf.pictureSizes().first().height(), 842 - 2 * paperMargin - 1.15 * points, 4);
}

TEST_F(Print, ALineIsNeverCutByThePagesEdge)
{
    QStringList lines;
    for (int i = 0; i < 300; ++i)
        lines << QStringLiteral("line%1").arg(i, 3, 10, QLatin1Char('0'));
    box.setText(lines.join(u' ')); // one paragraph

    select(0, 10000);
    box.setSelFontSize(23);
    box.setSelStart(0);
    const QStringList pages = print();
    ASSERT_GT(pages.size(), 1);
    QStringList printed; // a line that is cut is on two pages
    for (const QString &page : pages)
        printed += page.simplified().split(u' ');
    EXPECT_EQ(printed.join(u' ').toStdString(), lines.join(u' ').toStdString());
    EXPECT_EQ(dots(QRectF(0, 842 - paperMargin, 595, 50), Qt::white), 595 * 4 * 50 * 4);
}

TEST_F(Print, WhatHangsOutOfTheMarginIsThere)
{
    box.setTextRTF("{\\rtf1\\fi-600 hanging}");
    print();
    EXPECT_NEAR(leftOf("hanging"), paperMargin - 30, 1);
    EXPECT_GT(dots(QRectF(paperMargin - 30, paperMargin, 29, 20), Qt::black), 50);
}

TEST_F(Print, PaperIsWhiteAndTextIsBlackInDarkToo)
{
    QPalette dark;
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    box.setPalette(dark);
    box.setText(QStringLiteral("MMM"));
    print();
    EXPECT_GT(dots(pdf.placeOf(QStringLiteral("MMM")), Qt::black), 50);
    EXPECT_EQ(dots(QRectF(100, 400, 100, 100), Qt::white), 400 * 400);
}

TEST_F(Print, MarkedLinksLookAsOnTheScreen)
{
    box.setText(QStringLiteral("see http://example.org/ now"));
    const QString link = QStringLiteral("http://example.org/");
    const QColor look = box.palette().color(QPalette::Link);
    print();
    EXPECT_EQ(dots(pdf.placeOf(link), look), 0);
    box.setAutoURLDetection(true);
    print();
    EXPECT_GT(dots(pdf.placeOf(link), look), 50);
    EXPECT_EQ(dots(pdf.placeOf(QStringLiteral("now")), look), 0);

    box.setText(QStringLiteral("line\n").repeated(100) + QStringLiteral("see http://example.org/"));
    EXPECT_EQ(print().size(), 2);
    EXPECT_GT(dots(pdf.placeOf(link), look, 2), 50);
}

TEST_F(Print, ColumnsShadesAndBordersOfATable)
{
    box.setTextRTF(
        "{\\rtf1{\\colortbl;\\red204\\green255\\blue204;}\\trowd"
        "\\clbrdrt\\brdrs\\brdrw20\\clbrdrl\\brdrs\\brdrw20\\clbrdrb\\brdrs\\brdrw20"
        "\\clbrdrr\\brdrs\\brdrw20\\clcbpat1\\cellx2880\\cellx5760\\intbl one\\cell two\\cell\\row\\pard}");
    print();
    EXPECT_NEAR(leftOf("two") - leftOf("one"), 144, 2);
    const double top = topOf("one");
    EXPECT_GT(dots(QRectF(paperMargin + 100, top, 10, 10), QColor(204, 255, 204)), 1500);
    EXPECT_EQ(dots(QRectF(paperMargin + 200, top, 10, 10), Qt::white), 1600);
    EXPECT_GT(dots(QRectF(paperMargin + 100, top - 5, 10, 10), Qt::black), 30);
}

TEST_F(Print, CellsCutByThePagesEdgeLoseNothing)
{
    QByteArray rtf = "{\\rtf1\\fs46 start\\par ";
    QStringList words;
    for (int i = 0; i < 60; ++i) {
        rtf += "\\trowd\\clvertalc\\cellx2000\\clvertalb\\cellx4000\\cellx6000\\intbl middle" +
               QByteArray::number(i) + "\\cell foot" + QByteArray::number(i) +
               "\\cell one\\par two\\par three\\cell\\row\n";
        words << QStringLiteral("middle%1").arg(i) << QStringLiteral("foot%1").arg(i);
    }
    box.setTextRTF(rtf + "\\pard the end\\par}");
    const QStringList pages = print();
    EXPECT_GT(pages.size(), 5);
    const QStringList printed = pages.join(u' ').simplified().split(u' ');
    for (const QString &word : words)
        EXPECT_EQ(printed.count(word), 1) << qPrintable(word);
    EXPECT_EQ(printed.count(QStringLiteral("three")), 60);
    EXPECT_TRUE(std::any_of(pages.cbegin() + 1, pages.cend(), [](const QString &page) {
        return page.simplified().startsWith(QStringLiteral("three")); // its row began on the page before
    }));
    EXPECT_EQ(printed.last(), QStringLiteral("end"));
}

TEST_F(Print, ATableCutByThePagesEdgeIsClosed)
{
    for (const int pixels : {1, 2, 5}) {
        QByteArray lines;
        for (const char *edge : {"\\clbrdrt", "\\clbrdrl", "\\clbrdrb", "\\clbrdrr"})
            lines += edge + QByteArray("\\brdrs\\brdrw") + QByteArray::number(15 * pixels);
        const QByteArray row = "\\trowd" + lines + "\\cellx2880" + lines + "\\cellx5760\\intbl " +
                               QByteArray("line\\par ").repeated(120) + "\\cell\\cell\\row";
        box.setTextRTF("{\\rtf1 start\\par " + row + "\\pard the end\\par}");
        const QStringList pages = print();
        ASSERT_EQ(pages.size(), 3);
        EXPECT_EQ(pages.join(QString()).count(QStringLiteral("line")), 120);
        EXPECT_EQ(pages.join(QString()).count(QStringLiteral("start")), 1);

        const double width = pixels * 0.75;
        const QRectF top(paperMargin + 100, paperMargin, 10, 3 * width); // beside the text
        const QRectF bottom(paperMargin + 100, 842 - paperMargin - 3 * width, 10, 3 * width);
        const QRectF side(paperMargin + 1.5 * width, 0, 0.25, 842); // along the left line
        for (const int page : {1, 2, 3}) {
            const double rows = 4 * width - 0.5; // where it falls between two dots
            EXPECT_NEAR(dots(top, Qt::black, page), page > 1 ? 40 * rows : 0, 20) << pixels << page;
            EXPECT_NEAR(dots(bottom, Qt::black, page), page < 3 ? 40 * rows : 0, 20) << pixels << page;
        }
        const double wholeHeight = 4 * (297 / 25.4 * 72 - 2 * paperMargin - 2 * width);
        EXPECT_NEAR(dots(side, Qt::black, 2), wholeHeight, 2.5) << pixels;
    }
}

TEST_F(Print, CellsWithLinesOfTheirOwnAreClosedAtThePagesEdge)
{
    if (!QuickLayout::isAvailable())
        GTEST_SKIP() << "Built without Qt's private headers cells stay open there";
    box.setTextRTF("{\\rtf1 start\\par \\trowd\\clbrdrt\\brdrs\\brdrw60\\clbrdrb\\brdrs\\brdrw30\\cellx2880"
                   "\\clbrdrb\\brdrs\\brdrw30\\cellx5760\\intbl " +
                   QByteArray("line\\par ").repeated(120) + "\\cell\\cell\\row\\pard the end\\par}");
    ASSERT_EQ(print().size(), 3);
    const double first = paperMargin + 100;
    const double second = first + 144;
    const double bottom = 842 - paperMargin;
    const auto black = [&](double x, double y, double height, int page) {
        return dots(QRectF(x, y, 10, height), Qt::black, page);
    };
    for (const int page : {1, 2, 3}) {
        EXPECT_NEAR(black(first, bottom, 1.5, page), page < 3 ? 40 * 6 : 0, 40) << page;
        EXPECT_NEAR(black(second, bottom, 1.5, page), page < 3 ? 40 * 6 : 0, 40) << page;
        EXPECT_NEAR(black(first, paperMargin - 3, 3, page), page > 1 ? 40 * 12 : 0, 40) << page;
        EXPECT_EQ(black(second, paperMargin - 3, 3, page), 0) << page;
    }
}

TEST_F(Print, CutCellsAreClosedByTheLinesOfTheirNeighbours)
{
    if (!QuickLayout::isAvailable())
        GTEST_SKIP() << "Built without Qt's private headers cells stay open there";
    const QByteArray line = "\\brdrs\\brdrw30";
    box.setTextRTF("{\\rtf1 \\trowd\\clbrdrb" + line +
                   "\\cellx2880\\intbl above\\cell\\row\\trowd\\cellx2880\\intbl " +
                   QByteArray("line\\par ").repeated(70) + "\\cell\\row\\trowd\\clbrdrt" + line +
                   "\\cellx2880\\intbl below\\cell\\row\\pard the end\\par}");
    ASSERT_EQ(print().size(), 2);
    const double x = paperMargin + 100;
    EXPECT_NEAR(dots(QRectF(x, 842 - paperMargin, 10, 1.5), Qt::black, 1), 40 * 6, 40);
    EXPECT_NEAR(dots(QRectF(x, paperMargin - 1.5, 10, 1.5), Qt::black, 2), 40 * 6, 40);
}

TEST_F(Print, APageBreakInATableLeavesNoPageEmpty)
{
    const auto pages = [this](const QByteArray &rtf) {
        box.setTextRTF("{\\rtf1" + rtf + "\\pard Last\\par}");
        return print().join(u'|').simplified();
    };
    const QByteArray row = "\\trowd\\cellx3000\\cellx6000\\pard\\intbl\\pagebb x\\cell y\\cell\\row";
    const QByteArray plainRow = "\\trowd\\cellx3000\\cellx6000\\pard\\intbl z\\cell z\\cell\\row";
    EXPECT_EQ(pages(" First\\par" + row + row), QStringLiteral("First |x y x y Last"));
    EXPECT_EQ(pages(" First\\par" + plainRow + row), QStringLiteral("First z z x y Last"));
    EXPECT_EQ(pages(row), QStringLiteral("x y Last"));
}

TEST_F(Print, WholeCellsAreClosedAtThePagesEdge)
{
    if (!QuickLayout::isAvailable())
        GTEST_SKIP() << "Built without Qt's private headers cells stay open there";
    const QByteArray row =
        "\\trowd\\clbrdrl\\brdrs\\brdrw30\\clbrdrb\\brdrs\\brdrw30\\cellx2880\\intbl x\\cell\\row";
    box.setTextRTF("{\\rtf1\\fs20 " + row.repeated(90) + "\\pard the end\\par}");
    ASSERT_EQ(print().size(), 2);
    const double x = paperMargin + 100;
    EXPECT_NEAR(dots(QRectF(x, 842 - paperMargin, 10, 1.5), Qt::black, 1), 40 * 6, 40);
    EXPECT_NEAR(dots(QRectF(x, paperMargin - 1, 10, 2), Qt::black, 2), 40 * 6, 40);
}

TEST_F(Print, AFileThatCannotBeWrittenIsAnErrorAndLeavesNothing)
{
    box.setText(QStringLiteral("text"));
    Files::write(file(), "old");
    {
        const FullDisk full(100);
        EXPECT_EQ(errorNumberOf([&] { box.SelPrint(&printer); }), ErrorNumber::DiskFull);
    }
    EXPECT_EQ(Files::read(file()), QByteArray("old"));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
    printer.setOutputFileName(folder.filePath(QStringLiteral("gone/a.pdf")));
    EXPECT_EQ(errorNumberOf([&] { box.SelPrint(&printer); }), ErrorNumber::PathNotFound);
}

TEST_F(Print, MarginsThatLeaveNoPaperAreAnError)
{
    box.setText(QStringLiteral("text"));
    for (const QMarginsF &margins : {QMarginsF(0, 297, 0, 0), QMarginsF(210, 0, 0, 0)}) {
        const QPageLayout borderless(QPageSize(QPageSize::A4), QPageLayout::Portrait, margins,
                                     QPageLayout::Millimeter);
        ASSERT_TRUE(printer.setPageLayout(borderless));
        EXPECT_EQ(errorNumberOf([&] { box.SelPrint(&printer); }), ErrorNumber::PrinterError);
    }
    EXPECT_FALSE(QFile::exists(file()));
}

TEST_F(Print, APrinterThatDoesNotBeginIsAnError)
{
    QtMessages::expect(QStringLiteral("A paint device can only be painted by one painter at a time"));
    QtMessages::expect(QStringLiteral("Cannot be changed while printer is active"));
    box.setText(QStringLiteral("text"));
    QPainter other(&printer);
    EXPECT_EQ(errorNumberOf([&] { box.SelPrint(&printer); }), ErrorNumber::PrinterError);
}
