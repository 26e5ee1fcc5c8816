#include "PaintedArea.h"
#include "Pictures.h"
#include "RichTextFixture.h"

#include <QBuffer>
#include <QImage>
#include <QScrollBar>
#include <functional>

namespace {

/// The text "one ", a picture of 100 by 50 pixels, and " two".
class PictureHandlesTest : public RichTextFixture
{
protected:
    static constexpr int place = 4; // of the picture

    void SetUp() override
    {
        box.setText(QStringLiteral("one  two"));
        QImage image(100, 50, QImage::Format_RGB32);
        image.fill(Qt::red);
        QTextCursor cursor(box.document());
        cursor.setPosition(place);
        Pictures::insert(cursor, image, 1e6);
        show();
    }
    QSizeF size() const { return Pictures::sizeAt(*box.document(), place); }
    /// In the viewport; the text is written from the left.
    QRect area()
    {
        QTextCursor cursor(box.document());
        cursor.setPosition(place);
        const int left = box.cursorRect(cursor).left();
        const QTextLine line = box.document()->begin().layout()->lineForTextPosition(place);
        const double foot = box.document()->documentMargin() + line.y() + line.ascent();
        return {QPoint(left, qRound(foot - size().height())), size().toSize()};
    }
    void drag(const QPoint &from, const QPoint &to)
    {
        QTest::mousePress(box.viewport(), Qt::LeftButton, Qt::NoModifier, from);
        QMouseEvent move(QEvent::MouseMove, to, box.viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(box.viewport(), &move);
        QTest::mouseRelease(box.viewport(), Qt::LeftButton, Qt::NoModifier, to);
    }
    void click(const QPoint &point)
    {
        QTest::mouseClick(box.viewport(), Qt::LeftButton, Qt::NoModifier, point);
    }
    QColor pixel(const QPoint &point) { return box.viewport()->grab().toImage().pixelColor(point); }
};

} // namespace

TEST_F(PictureHandlesTest, AClickSelectsThePictureAlone)
{
    click(area().center());
    EXPECT_EQ(box.SelStart(), place);
    EXPECT_EQ(box.SelLength(), 1);
}

TEST_F(PictureHandlesTest, ASideThatAPictureLeavesOpenFollowsTheOther)
{
    QTextCursor cursor(box.document());
    cursor.setPosition(place);
    cursor.setPosition(place + 1, QTextCursor::KeepAnchor);
    QTextImageFormat format = cursor.charFormat().toImageFormat();
    format.clearProperty(QTextFormat::ImageHeight);
    format.setWidth(40);
    cursor.setCharFormat(format);
    EXPECT_EQ(size(), QSizeF(40, 20));
    format.clearProperty(QTextFormat::ImageWidth);
    format.setHeight(10);
    cursor.setCharFormat(format);
    EXPECT_EQ(size(), QSizeF(20, 10));
}

TEST_F(PictureHandlesTest, ASelectedPictureHasCorners)
{
    const QPoint corner = area().topRight() + QPoint(3, -3);
    const QColor before = pixel(corner);
    click(area().center());
    EXPECT_NE(pixel(corner), before);
    click(pointAt(1));
    EXPECT_EQ(pixel(corner), before);
}

TEST_F(PictureHandlesTest, CornersComeAndGoWithTheWholeView)
{
    PaintedArea painted(*box.viewport());
    click(area().center());
    EXPECT_TRUE(painted.covers(area().adjusted(-5, -5, 5, 5)));
    click(pointAt(1));
    EXPECT_TRUE(painted.covers(area().adjusted(-5, -5, 5, 5)));
}

TEST_F(PictureHandlesTest, ACornerResizesInProportionAsOneStep)
{
    click(area().center());
    const QPoint corner = area().bottomRight();
    drag(corner, corner + QPoint(50, 10));
    EXPECT_NEAR(size().width(), 150, 3);
    EXPECT_NEAR(size().height(), 75, 2);
    EXPECT_EQ(box.SelLength(), 1);
    box.undo();
    EXPECT_EQ(size(), QSizeF(100, 50));
}

TEST_F(PictureHandlesTest, CornersInAnIndentedParagraphAreWhereThePictureIs)
{
    box.setSelIndent(1440);
    click(area().center());
    EXPECT_EQ(box.SelLength(), 1);
    EXPECT_EQ(pixel(area().bottomRight()), box.palette().color(QPalette::Highlight));
}

TEST_F(PictureHandlesTest, ACornerIsDraggedOnWhileTheViewScrolls)
{
    QTextCursor end(box.document());
    end.movePosition(QTextCursor::End);
    end.insertText(QStringLiteral("\nline").repeated(100));
    click(area().center());
    const QPoint corner = area().bottomRight();
    QTest::mousePress(box.viewport(), Qt::LeftButton, Qt::NoModifier, corner);
    box.verticalScrollBar()->setValue(50);
    QMouseEvent move(QEvent::MouseMove, corner, box.viewport()->mapToGlobal(corner), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(box.viewport(), &move);
    EXPECT_EQ(pixel(corner), box.palette().color(QPalette::Highlight));
    QTest::mouseRelease(box.viewport(), Qt::LeftButton, Qt::NoModifier, corner);
    EXPECT_NEAR(size().width(), 200, 3);
    EXPECT_NEAR(size().height(), 100, 2);
}

/// It is not read whole for that, as a mouse that moves asks for it many times.
TEST_F(PictureHandlesTest, TheOwnSizeOfAPictureIsInTheHeadOfItsFile)
{
    QByteArray file;
    QBuffer buffer(&file);
    QImage image(300, 200, QImage::Format_RGB32);
    image.fill(Qt::red);
    image.save(&buffer, "PNG");
    const qsizetype head = file.indexOf("IDAT") + 4;
    const QUrl name(QStringLiteral("picture:head"));
    box.document()->addResource(QTextDocument::ImageResource, name, file.first(head));
    QTextImageFormat format;
    format.setName(name.toString());
    QTextCursor(box.document()).insertImage(format);
    EXPECT_EQ(Pictures::sizeAt(*box.document(), 0), QSizeF(300, 200));
}

TEST_F(PictureHandlesTest, CornersOfAnEnlargedPictureAreWhereItIs)
{
    for (int i = 0; i < 5; ++i) // to 200 percent
        QTest::keyClick(&box, Qt::Key_Plus, Qt::ControlModifier);
    const QPoint foot = area().bottomLeft() + QPoint(0, qRound(box.document()->documentMargin()));
    click(foot + QPoint(100, -50));
    EXPECT_EQ(box.SelLength(), 1);
    const QPoint corner = foot + QPoint(200, 0);
    drag(corner, corner + QPoint(100, 50));
    drag(corner, corner + QPoint(100, 50));
    EXPECT_NEAR(size().width(), 150, 3);
    EXPECT_NEAR(size().height(), 75, 2);
}

TEST_F(PictureHandlesTest, TheOppositeCornerIsTheFixedOne)
{
    click(area().center());
    const QPoint corner = area().topLeft();
    drag(corner, corner + QPoint(50, 25));
    EXPECT_NEAR(size().width(), 50, 3);
}

TEST_F(PictureHandlesTest, ThePictureStaysWithinItsLineAndVisible)
{
    const double line = box.document()->pageSize().width() - 2 * box.document()->documentMargin();
    click(area().center());
    drag(area().bottomRight(), area().bottomRight() + QPoint(2000, 10));
    EXPECT_EQ(size().width(), line);
    drag(area().bottomRight(), area().topLeft());
    EXPECT_EQ(size().height(), 8);
}

TEST_F(PictureHandlesTest, APressWithoutAMoveChangesNothing)
{
    click(area().center());
    click(area().bottomRight());
    EXPECT_EQ(size(), QSizeF(100, 50));
    box.undo(); // of the picture itself
    EXPECT_EQ(size(), QSizeF());
}

TEST_F(PictureHandlesTest, TheNewSizeIsSaved)
{
    click(area().center());
    drag(area().bottomRight(), area().bottomRight() + QPoint(50, 25));
    const QSizeF resized = size();
    const QByteArray rtf = box.TextRTF();
    box.setTextRTF(rtf);
    EXPECT_NEAR(size().width(), resized.width(), 0.1);
    EXPECT_NEAR(size().height(), resized.height(), 0.1);
}

TEST_F(PictureHandlesTest, ALockedTextKeepsItsSizes)
{
    box.setLocked(true);
    box.setSelStart(place);
    box.setSelLength(1);
    drag(area().bottomRight(), area().bottomRight() + QPoint(50, 25));
    EXPECT_EQ(size(), QSizeF(100, 50));
}

TEST_F(PictureHandlesTest, ThePointerShowsWhatACornerDoes)
{
    click(area().center());
    QTest::mouseMove(box.viewport(), area().bottomRight());
    EXPECT_EQ(box.viewport()->cursor().shape(), Qt::SizeFDiagCursor);
    QTest::mouseMove(box.viewport(), area().topRight());
    EXPECT_EQ(box.viewport()->cursor().shape(), Qt::SizeBDiagCursor);
    QTest::mouseMove(box.viewport(), pointAt(1));
    EXPECT_EQ(box.viewport()->cursor().shape(), Qt::IBeamCursor);
}

TEST_F(PictureHandlesTest, ADocumentThatComesWhileACornerIsDraggedEndsTheDrag)
{
    click(area().center());
    QTest::mousePress(box.viewport(), Qt::LeftButton, Qt::NoModifier, area().bottomRight());
    box.setText(QStringLiteral("new"));
    QTest::mouseRelease(box.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(300, 200));
    EXPECT_EQ(box.Text(), QStringLiteral("new"));
}

/// Its corners are elsewhere then.
TEST_F(PictureHandlesTest, ADragEndsWhereTheViewIsEnlarged)
{
    const auto byKey = [this] { QTest::keyClick(&box, Qt::Key_Plus, Qt::ControlModifier); };
    const auto byWheel = [this] {
        const QPointF point = area().center();
        QWheelEvent wheel(point, box.viewport()->mapToGlobal(point), {}, {0, 120}, Qt::NoButton,
                          Qt::ControlModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(box.viewport(), &wheel);
    };
    const QSizeF before = size();
    for (const std::function<void()> &enlarge :
         {std::function<void()>(byKey), std::function<void()>(byWheel)}) {
        QTest::keyClick(&box, Qt::Key_0, Qt::ControlModifier);
        click(area().center());
        const QPoint corner = area().bottomRight();
        QTest::mousePress(box.viewport(), Qt::LeftButton, Qt::NoModifier, corner);
        const QPoint beside = corner + QPoint(50, 25);
        QMouseEvent move(QEvent::MouseMove, beside, box.viewport()->mapToGlobal(beside), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(box.viewport(), &move);
        enlarge();
        QTest::mouseRelease(box.viewport(), Qt::LeftButton, Qt::NoModifier, beside);
        EXPECT_EQ(size(), before);
    }
}
