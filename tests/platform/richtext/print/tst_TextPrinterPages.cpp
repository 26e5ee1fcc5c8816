#include "PrintFixture.h"

namespace {

class PrintedPages : public PrintFixture
{
protected:
    static constexpr double inch = 72; // points

    static QByteArray lines(const char *text, int count)
    {
        return QByteArray(text).append("\\par ").repeated(count);
    }
    /// Of the first such word on page \a page.
    double topOnPage(int page, const char *word)
    {
        const QRectF place = pdf.placeOf(QString::fromLatin1(word), page);
        return place.isEmpty() ? -1 : place.top();
    }
};

} // namespace

TEST_F(PrintedPages, HaveTheDocumentsPaperAndMargins)
{
    box.setTextRTF(
        "{\\rtf1\\paperw8640\\paperh11520\\margl1440\\margr1440\\margt2880\\margb1440 \\ql first\\par"
        "\\qr last\\par}");
    print();
    EXPECT_EQ(pdf.paper(), QSizeF(6 * inch, 8 * inch));
    EXPECT_NEAR(leftOf("first"), inch, 1);
    EXPECT_NEAR(topOf("first"), 2 * inch, 4);
    EXPECT_NEAR(pdf.placeOf(QStringLiteral("last")).right(), 5 * inch, 1);
}

TEST_F(PrintedPages, ThePrinterHasItsOwnPaperAgainAfterwards)
{
    const QPageLayout before = printer.pageLayout();
    box.setTextRTF("{\\rtf1\\paperw15840\\paperh12240\\landscape wide}");
    print();
    EXPECT_EQ(pdf.paper(), QSizeF(11 * inch, 8.5 * inch));
    EXPECT_EQ(printer.pageLayout(), before);
    box.setText(QStringLiteral("text"));
    print();
    EXPECT_NEAR(pdf.paper().width(), 595, 1);
}

TEST_F(PrintedPages, WhatTheDocumentDoesNotSayIsThePrinters)
{
    box.setTextRTF("{\\rtf1\\margl2880\\landscape text}");
    print();
    EXPECT_NEAR(pdf.paper().width(), 842, 1);
    EXPECT_NEAR(leftOf("text"), 2 * inch, 1);
    EXPECT_NEAR(topOf("text"), paperMargin, 4);
    box.setTextRTF("{\\rtf1\\margl11000\\margr11000\\paperw0 text}"); // no room for text
    print();
    EXPECT_NEAR(leftOf("text"), paperMargin, 1);
}

TEST_F(PrintedPages, MirroredMarginsAndTheGutter)
{
    box.setTextRTF("{\\rtf1\\margmirror\\gutter720\\margl720\\margr2880 odd\\par\\page even\\par}");
    ASSERT_EQ(print().size(), 2);
    EXPECT_NEAR(leftOf("odd"), inch, 1);
    EXPECT_NEAR(leftOf("even"), 2 * inch, 1);
}

TEST_F(PrintedPages, ASelectionIsPrintedOnTheDocumentsPaperWithoutHeaders)
{
    box.setTextRTF("{\\rtf1\\paperw8640\\paperh11520\\margl1440{\\header head\\par}one two}");
    select(4, 7);
    EXPECT_EQ(print().join(QString()).trimmed(), QStringLiteral("two"));
    EXPECT_EQ(pdf.paper(), QSizeF(6 * inch, 8 * inch));
    EXPECT_NEAR(leftOf("two"), inch, 1);
}

TEST_F(PrintedPages, HeadersAndFootersAreOnEachPageWithItsNumber)
{
    box.setTextRTF("{\\rtf1\\paperw12240\\paperh15840\\margl1440\\margr1440\\margt1440\\margb1440\\headery500"
                   "\\footery600"
                   "{\\header\\qr Head {\\field{\\*\\fldinst PAGE}{\\fldrslt 7}}\\par}"
                   "{\\footer Foot {\\field{\\*\\fldinst PAGE \\\\* ROMAN}{\\fldrslt 7}} of "
                   "{\\field{\\*\\fldinst NUMPAGES}{\\fldrslt 7}}.\\par}" +
                   lines("line", 200) + "}");
    const QStringList pages = print();
    ASSERT_GE(pages.size(), 4);
    for (int i = 0; i < pages.size(); ++i) {
        constexpr std::array<const char *, 6> roman = {"I", "II", "III", "IV", "V", "VI"};
        EXPECT_TRUE(pages.at(i).trimmed().startsWith(QStringLiteral("Head %1\n").arg(i + 1)));
        EXPECT_TRUE(pages.at(i).trimmed().endsWith(
            QStringLiteral("Foot %1 of %2.").arg(QLatin1String(roman[size_t(i)])).arg(pages.size())));
        EXPECT_NEAR(topOnPage(i + 1, "Head"), 25, 4);
        EXPECT_NEAR(topOnPage(i + 1, "line"), inch, 4);
        EXPECT_NEAR(pdf.placeOf(QStringLiteral("Foot"), i + 1).bottom(), 11 * inch - 30, 4);
        EXPECT_NEAR(leftOf("Foot"), inch, 1);
    }
    EXPECT_EQ(pages.join(QString()).count(QStringLiteral("line")), 200);
}

TEST_F(PrintedPages, TallHeadersAndFootersMoveTheText)
{
    const QByteArray tall = lines("\\fs24 tall", 10);
    box.setTextRTF("{\\rtf1\\margt720\\margb720{\\header " + tall + "}{\\footer " + tall + "}" +
                   lines("line", 150) + "}");
    const QStringList pages = print();
    ASSERT_GE(pages.size(), 3);
    for (int page = 1; page <= pages.size(); ++page) {
        EXPECT_EQ(pages.at(page - 1).count(QStringLiteral("tall")), 20);
        EXPECT_GT(topOnPage(page, "line"), 36 + 10 * 12);
        EXPECT_EQ(pages.at(page - 1).simplified().lastIndexOf(QStringLiteral("line")) >
                      pages.at(page - 1).simplified().lastIndexOf(QStringLiteral("tall")),
                  false);
    }
    box.setTextRTF("{\\rtf1\\margt-720{\\header " + tall + "}line}");
    print();
    EXPECT_NEAR(topOf("line"), 36, 4);
}

TEST_F(PrintedPages, TheFirstPageHasItsOwn)
{
    const QByteArray letter = "{\\headerf " + lines("\\fs24 letterhead", 10) + "}{\\header later\\par}";
    box.setTextRTF("{\\rtf1\\margt1440\\titlepg" + letter + "first line\\par" + lines("line", 100) + "}");
    const QStringList pages = print();
    ASSERT_GE(pages.size(), 2);
    EXPECT_EQ(pages.first().count(QStringLiteral("letterhead")), 10);
    EXPECT_FALSE(pages.first().contains(QStringLiteral("later")));
    EXPECT_GT(topOf("first"), 36 + 10 * 12);
    EXPECT_FALSE(pages.at(1).contains(QStringLiteral("letterhead")));
    EXPECT_TRUE(pages.at(1).contains(QStringLiteral("later")));
    EXPECT_NEAR(topOnPage(2, "line"), inch, 4);

    box.setTextRTF("{\\rtf1" + letter + "text}"); // without \titlepg
    EXPECT_TRUE(print().first().contains(QStringLiteral("later")));
}

TEST_F(PrintedPages, FacingPagesHaveTheirOwn)
{
    const QByteArray body = "{\\headerl left\\par}{\\headerr right\\par}one\\par\\page two\\par\\page three}";
    box.setTextRTF("{\\rtf1\\facingp" + body);
    QStringList pages = print();
    ASSERT_EQ(pages.size(), 3);
    EXPECT_EQ(pages.join(QString()).simplified(), QStringLiteral("right one left two right three"));
    box.setTextRTF("{\\rtf1" + body);
    EXPECT_EQ(print().join(QString()).simplified(), QStringLiteral("right one right two right three"));
}

TEST_F(PrintedPages, NumbersBeginWhereTheDocumentSays)
{
    box.setTextRTF(
        "{\\rtf1\\sectd\\pgnrestart\\pgnstarts9\\pgnlcrm{\\footer p{\\chpgn}p\\par}one\\par\\page two}");
    EXPECT_EQ(print().join(QString()).simplified(), QStringLiteral("one pixp two pxp"));
}

TEST_F(PrintedPages, APageOfItsOwnOrderHasItsOwnNumber)
{
    box.setTextRTF("{\\rtf1{\\footer p{\\chpgn}p\\par}one\\par\\page two}");
    printer.setPageOrder(QPrinter::LastPageFirst);
    EXPECT_EQ(print().join(QString()).simplified(), QStringLiteral("two p2p one p1p"));
}

TEST_F(PrintedPages, TabsWithoutStopsStandAtTheDocumentsDistance)
{
    box.setTextRTF("{\\rtf1\\deftab1440 a\\tab one}");
    print();
    EXPECT_NEAR(leftOf("one"), paperMargin + inch, 1);
    box.setText(QStringLiteral("a\tone"));
    print();
    EXPECT_NEAR(leftOf("one"), paperMargin + inch / 2, 1);
}

TEST_F(PrintedPages, TheFirstParagraphHasTheSpaceBeforeIt)
{
    box.setTextRTF("{\\rtf1\\margt1440\\sb1440 first\\par\\sb0 second\\par}");
    print();
    EXPECT_NEAR(topOf("first"), 2 * inch, 4);
    EXPECT_LT(topOf("second") - topOf("first"), 20);
}

TEST_F(PrintedPages, LinesAreAsHighAsTheirFontSays)
{
    box.setTextRTF("{\\rtf1{\\fonttbl{\\f0 Liberation Sans;}}\\margt1440\\f0\\fs20 first\\par " +
                   lines("line", 40) + "last}");
    print();
    constexpr double height = 0.905 + 0.212 + 0.033; // of the size
    EXPECT_NEAR((topOf("last") - topOf("first")) / 41, height * 10, 0.06);
}
