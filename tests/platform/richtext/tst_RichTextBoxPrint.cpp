#include "ParagraphFormat.h"
#include "RichTextFixture.h"

#include <QPdfWriter>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextTable>

namespace {

class Print : public RichTextFixture
{
protected:
    void SetUp() override
    {
        if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
            GTEST_SKIP() << "pdftotext, which reads the printed pages, is not installed";
    }

    /// The printed pages' text.
    QStringList print(int resolution = 1200)
    {
        {
            QPdfWriter writer(file());
            writer.setResolution(resolution);
            writer.setPageSize(QPageSize(QPageSize::A4));
            writer.setPageMargins(QMarginsF(20, 20, 20, 20), QPageLayout::Millimeter);
            box.SelPrint(&writer);
        }
        QStringList pages = read({QStringLiteral("-layout")}).split(u'\f');
        pages.removeLast();
        return pages;
    }

    /// From the paper's left edge, in points.
    double leftOf(const QString &word)
    {
        const QRegularExpression place(QStringLiteral("xMin=\"([0-9.]+)\"[^>]*>%1<").arg(word));
        return place.match(read({QStringLiteral("-bbox")})).captured(1).toDouble();
    }
    double topOf(const QString &word)
    {
        const QRegularExpression place(QStringLiteral("yMin=\"([0-9.]+)\"[^>]*>%1<").arg(word));
        return place.match(read({QStringLiteral("-bbox")})).captured(1).toDouble();
    }

    QString file() const { return folder.filePath(QStringLiteral("a.pdf")); }

    static constexpr double paperMargin = 20 / 25.4 * 72; // points

private:
    QString read(QStringList arguments) const
    {
        QProcess reader;
        reader.start(QStringLiteral("pdftotext"), arguments << file() << QStringLiteral("-"));
        reader.waitForFinished();
        return QString::fromUtf8(reader.readAllStandardOutput());
    }

    QTemporaryDir folder;
};

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

TEST_F(Print, AnInchIsAnInchAtAnyResolution)
{
    box.setText(QStringLiteral("zero\ninch"));
    box.setSelStart(6);
    box.setSelIndent(1440);
    box.setSelStart(0);
    for (const int resolution : {96, 300, 1200}) {
        print(resolution);
        EXPECT_NEAR(leftOf(QStringLiteral("zero")), paperMargin, 1) << resolution;
        EXPECT_NEAR(leftOf(QStringLiteral("inch")), paperMargin + 72, 1) << resolution;
    }
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
    EXPECT_NEAR(leftOf(QStringLiteral("item")), paperMargin + 72, 1);
    EXPECT_NEAR(leftOf(QStringLiteral("first")), paperMargin + 36, 1);
}

TEST_F(Print, SpaceBetweenParagraphsIsScaled)
{
    box.setText(QStringLiteral("one\ntwo"));
    const double close = (print(), topOf(QStringLiteral("two")) - topOf(QStringLiteral("one")));
    QTextBlockFormat format;
    ParagraphFormat::setSpacing(format, 0, 1440);
    box.textCursor().mergeBlockFormat(format);
    print();
    EXPECT_NEAR(topOf(QStringLiteral("two")) - topOf(QStringLiteral("one")), close + 72, 1);
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
    EXPECT_NEAR(topOf(QStringLiteral("two")) - topOf(QStringLiteral("one")), 24, 1);
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
    EXPECT_NEAR(leftOf(QStringLiteral("two")) - leftOf(QStringLiteral("one")), 144, 2);
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
