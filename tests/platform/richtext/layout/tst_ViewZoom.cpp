#include "ParagraphFormat.h"
#include "Pictures.h"
#include "QuickLayout.h"
#include "RichTextFixture.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QWheelEvent>

namespace {

class ViewZoomTest : public RichTextFixture
{
protected:
    void SetUp() override
    {
        load();
        show();
    }
    void load()
    {
        box.setTextRTF(
            R"({\rtf1\ansi{\fonttbl{\f0 Liberation Sans;}}\f0\fs24 first\par\li1440\ri720\fi-720 second\par
\pard\sb480\tx1440 third\tab x\par})");
    }
    void press(int key) { QTest::keyClick(&box, Qt::Key(key), Qt::ControlModifier); }
    void turn(int delta, Qt::KeyboardModifiers modifiers = Qt::ControlModifier)
    {
        const QPointF point(10, 10);
        QWheelEvent event(point, box.viewport()->mapToGlobal(point), {}, {0, delta}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(box.viewport(), &event);
    }
    void enlarge()
    {
        constexpr int steps = 5; // to 200 percent
        for (int i = 0; i < steps; ++i)
            turn(120);
    }
    /// Indents only grow where Qt's private headers are used.
    static double indentFactor(double zoom) { return QuickLayout::isAvailable() ? zoom : 1; }
    QRectF lineOf(int number)
    {
        (void)box.document()->documentLayout()->documentSize();
        const QTextBlock block = paragraph(number);
        return box.document()->documentLayout()->blockBoundingRect(block);
    }
    double lineHeight(int number) { return paragraph(number).layout()->lineAt(0).height(); }
    double indent(int number) { return paragraph(number).layout()->lineAt(0).x(); }
    double tabPlace(int number) { return paragraph(number).layout()->lineAt(0).cursorToX(6); }
};

} // namespace

TEST_F(ViewZoomTest, EverythingIsLargerAndTheDocumentStays)
{
    const QByteArray before = box.TextRTF();
    const double height = lineHeight(0);
    const double left = indent(1);
    const double tab = tabPlace(2);
    const double place = lineOf(2).top();
    enlarge();
    EXPECT_NEAR(lineHeight(0), 2 * height, 2);
    EXPECT_NEAR(indent(1), indentFactor(2) * left, 1);
    EXPECT_NEAR(tabPlace(2), 2 * tab, 2);
    EXPECT_NEAR(lineOf(2).top(), 2 * place, 15);
    EXPECT_EQ(box.TextRTF(), before);
    EXPECT_FALSE(box.document()->isUndoAvailable());
    EXPECT_FALSE(box.document()->isModified());
    press(Qt::Key_0);
    EXPECT_EQ(lineHeight(0), height);
    EXPECT_EQ(indent(1), left);
    EXPECT_EQ(lineOf(2).top(), place);
}

TEST_F(ViewZoomTest, KeysGoUpAndDownByStepsThatEnd)
{
    const double height = lineHeight(0);
    press(Qt::Key_Plus);
    EXPECT_NEAR(lineHeight(0), 1.1 * height, 1.5);
    press(Qt::Key_Minus);
    EXPECT_EQ(lineHeight(0), height);
    for (int i = 0; i < 30; ++i)
        press(Qt::Key_Minus);
    EXPECT_NEAR(lineHeight(0), height / 2, 1.5);
    for (int i = 0; i < 30; ++i)
        press(Qt::Key_Plus);
    EXPECT_NEAR(lineHeight(0), 4 * height, 4);
}

TEST_F(ViewZoomTest, TheWheelAloneScrolls)
{
    const double height = lineHeight(0);
    turn(-120, Qt::NoModifier);
    EXPECT_EQ(lineHeight(0), height);
    turn(40);
    turn(40);
    EXPECT_EQ(lineHeight(0), height);
    turn(40);
    EXPECT_GT(lineHeight(0), height);
}

TEST_F(ViewZoomTest, EditsAndTheirUndoAreEnlargedToo)
{
    enlarge();
    const double left = indent(1);
    select(0, 1);
    box.setSelIndent(2880);
    EXPECT_NEAR(indent(0), indentFactor(2) * 2 * 96, 2);
    EXPECT_EQ(box.SelIndent(), 2880);
    press(Qt::Key_0);
    press(Qt::Key_Plus);
    box.undo();
    select(0, 1);
    EXPECT_EQ(box.SelIndent(), 0);
    box.redo();
    select(0, 1);
    EXPECT_EQ(box.SelIndent(), 2880);
    EXPECT_NEAR(indent(0), indentFactor(1.1) * 2 * 96, 3);
    EXPECT_LE(indent(1), left);
}

TEST_F(ViewZoomTest, AnotherDocumentIsEnlargedToo)
{
    const double height = lineHeight(0);
    const double left = indent(1);
    enlarge();
    load();
    EXPECT_NEAR(lineHeight(0), 2 * height, 2);
    EXPECT_NEAR(indent(1), indentFactor(2) * left, 1);
}

TEST_F(ViewZoomTest, APictureBecomesAsWideAsItsLineIsWithoutEnlargement)
{
    const int paragraphStart = paragraph(1).position();
    const double second = Pictures::lineWidth(*box.document(), paragraphStart + 3, 500);
    EXPECT_EQ(second, 500 - 96 - 48);
    box.setSelStart(0);
    box.setSelIndent(720);
    const double first = Pictures::lineWidth(*box.document(), 0, 500);
    enlarge();
    EXPECT_EQ(Pictures::lineWidth(*box.document(), paragraphStart + 3, 500), second);
    EXPECT_EQ(Pictures::lineWidth(*box.document(), 0, 500), first);
}

TEST_F(ViewZoomTest, TheFirstLineInViewStaysThere)
{
    box.setText(QStringLiteral("line\n").repeated(400));
    box.verticalScrollBar()->setValue(box.verticalScrollBar()->maximum() / 2);
    const int first = box.cursorForPosition({0, 0}).blockNumber();
    enlarge();
    EXPECT_EQ(box.cursorForPosition({0, 0}).blockNumber(), first);
    press(Qt::Key_0);
    EXPECT_EQ(box.cursorForPosition({0, 0}).blockNumber(), first);
}
