#include "RichTextFixture.h"

namespace {

class Links : public RichTextFixture
{
protected:
    void open(const QString &text)
    {
        box.setText(text);
        box.setAutoURLDetection(true);
        show();
        box.grab();
    }
    QColor colorAt(int position)
    {
        const QImage image = box.viewport()->grab().toImage();
        const QRect area(pointAt(position) - QPoint(3, 7), QSize(6, 14));
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                if (image.pixelColor(x, y) == box.palette().color(QPalette::Link))
                    return image.pixelColor(x, y);
            }
        }
        return {};
    }
    void addHyperlink(const QString &text, const QString &target)
    {
        QTextCharFormat format;
        format.setAnchor(true);
        format.setAnchorHref(target);
        QTextCursor cursor = box.textCursor();
        cursor.movePosition(QTextCursor::End);
        cursor.insertText(text, format);
    }
};

} // namespace

TEST_F(Links, AClickReportsTheAddress)
{
    open(QStringLiteral("see www.example.org, please"));
    const QSignalSpy clicks(&box, &RichTextBox::LinkClicked);
    QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, pointAt(8));
    ASSERT_EQ(clicks.size(), 1);
    const int first = clicks.at(0).at(0).toInt();
    const int end = clicks.at(0).at(1).toInt();
    EXPECT_EQ(box.Text().mid(first, end - first), QStringLiteral("www.example.org"));
    EXPECT_EQ(box.linkTarget(first), QStringLiteral("www.example.org"));
}

TEST_F(Links, AClickElsewhereReportsNothing)
{
    open(QStringLiteral("see www.example.org, please\n"));
    const QSignalSpy clicks(&box, &RichTextBox::LinkClicked);
    QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, pointAt(1));
    QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, pointAt(22));
    QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, QPoint(300, 200));
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent right(type, QPointF(pointAt(8)), box.viewport()->mapToGlobal(QPointF(pointAt(8))),
                          Qt::RightButton, Qt::RightButton, Qt::NoModifier);
        QCoreApplication::sendEvent(box.viewport(), &right);
    }
    QTest::mouseClick(box.viewport(), Qt::LeftButton, Qt::ShiftModifier, pointAt(8));
    EXPECT_EQ(clicks.size(), 0);
    EXPECT_EQ(box.linkTarget(0), QString());
}

TEST_F(Links, SelectingIsNoClick)
{
    open(QStringLiteral("see www.example.org, please"));
    const QSignalSpy clicks(&box, &RichTextBox::LinkClicked);
    QTest::mousePress(box.viewport(), Qt::LeftButton, {}, pointAt(6));
    QTest::mouseMove(box.viewport(), pointAt(12));
    QMouseEvent drag(QEvent::MouseMove, QPointF(pointAt(15)), box.viewport()->mapToGlobal(pointAt(15)),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(box.viewport(), &drag);
    QTest::mouseRelease(box.viewport(), Qt::LeftButton, {}, pointAt(15));
    EXPECT_GT(box.SelLength(), 0);
    EXPECT_EQ(clicks.size(), 0);
}

TEST_F(Links, AReleaseOverAnotherAddressIsNoClick)
{
    open(QStringLiteral("www.one.org www.two.org"));
    const QSignalSpy clicks(&box, &RichTextBox::LinkClicked);
    QTest::mousePress(box.viewport(), Qt::LeftButton, {}, pointAt(4));
    QTest::mouseRelease(box.viewport(), Qt::LeftButton, {}, pointAt(16));
    EXPECT_EQ(clicks.size(), 0);
}

TEST_F(Links, ADoubleClickSelectsAndReportsOnce)
{
    open(QStringLiteral("see www.example.org, please"));
    const QSignalSpy clicks(&box, &RichTextBox::LinkClicked);
    QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, pointAt(8));
    QTest::mouseDClick(box.viewport(), Qt::LeftButton, {}, pointAt(8));
    EXPECT_EQ(clicks.size(), 1);
}

TEST_F(Links, AClickIsReportedInALockedText)
{
    open(QStringLiteral("see www.example.org, please"));
    box.setLocked(true);
    const QSignalSpy clicks(&box, &RichTextBox::LinkClicked);
    QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, pointAt(8));
    EXPECT_EQ(clicks.size(), 1);
}

TEST_F(Links, WithoutDetectionThereAreNone)
{
    open(QStringLiteral("see www.example.org, please"));
    box.setAutoURLDetection(false);
    const QSignalSpy clicks(&box, &RichTextBox::LinkClicked);
    QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, pointAt(8));
    EXPECT_EQ(clicks.size(), 0);
    EXPECT_FALSE(colorAt(8).isValid());
}

TEST_F(Links, LookLikeLinksAndNothingElseDoes)
{
    open(QStringLiteral("see www.example.org, please"));
    EXPECT_TRUE(colorAt(8).isValid());
    EXPECT_FALSE(colorAt(1).isValid());
    EXPECT_FALSE(colorAt(23).isValid());
    EXPECT_FALSE(box.document()->isUndoAvailable());
    EXPECT_FALSE(box.TextRTF().contains("\\ul"));
}

TEST_F(Links, AnAddressBeingTypedLooksLikeOneWhenItIs)
{
    open(QString());
    QTest::keyClicks(&box, QStringLiteral("www"));
    EXPECT_FALSE(colorAt(1).isValid());
    QTest::keyClicks(&box, QStringLiteral(".example.org"));
    EXPECT_TRUE(colorAt(1).isValid());
    box.setSelStart(3);
    QTest::keyClick(&box, Qt::Key_Delete);
    EXPECT_FALSE(colorAt(1).isValid());
}

TEST_F(Links, AreMarkedWhereTheViewScrollsTo)
{
    open(QStringLiteral("line\n").repeated(200) + QStringLiteral("www.example.org"));
    box.setSelStart(1000);
    box.ensureCursorVisible();
    EXPECT_TRUE(colorAt(1005).isValid());
}

TEST_F(Links, ThePointerIsAHandAboveThem)
{
    open(QStringLiteral("see www.example.org, please"));
    QTest::mouseMove(box.viewport(), pointAt(8));
    EXPECT_EQ(box.viewport()->cursor().shape(), Qt::PointingHandCursor);
    QTest::mouseMove(box.viewport(), pointAt(1));
    EXPECT_EQ(box.viewport()->cursor().shape(), Qt::IBeamCursor);
}

TEST_F(Links, HyperlinksOfTheFileTellWhereTheyLead)
{
    open(QStringLiteral("our "));
    addHyperlink(QStringLiteral("home page"), QStringLiteral("https://example.org/home"));
    EXPECT_TRUE(colorAt(6).isValid());
    const QSignalSpy clicks(&box, &RichTextBox::LinkClicked);
    QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, pointAt(6));
    ASSERT_EQ(clicks.size(), 1);
    EXPECT_EQ(clicks.at(0).at(0).toInt(), 4);
    EXPECT_EQ(clicks.at(0).at(1).toInt(), 13);
    EXPECT_EQ(box.linkTarget(4), QStringLiteral("https://example.org/home"));
}

TEST_F(Links, StayInAnotherDocument)
{
    open(QStringLiteral("none"));
    box.setText(QStringLiteral("www.example.org"));
    EXPECT_TRUE(colorAt(4).isValid());
}

TEST_F(Links, AtTheSamePlaceInAnotherDocumentAreMarkedAnew)
{
    open(QStringLiteral("www.example.org"));
    EXPECT_TRUE(colorAt(4).isValid());
    box.setText(QStringLiteral("www.example.org"));
    EXPECT_TRUE(colorAt(4).isValid());
}

TEST_F(Links, ThatCameBackByUndoAreMarkedAnew)
{
    open(QStringLiteral("www.example.org"));
    EXPECT_TRUE(colorAt(4).isValid());
    select(0, 15);
    box.setSelText({});
    box.undo();
    box.setSelStart(0);
    EXPECT_TRUE(colorAt(4).isValid());
}

TEST_F(Links, AListenerMayCloseTheWindow)
{
    auto *other = new RichTextBox;
    other->setText(QStringLiteral("www.example.org"));
    other->setAutoURLDetection(true);
    other->resize(300, 100);
    other->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(other));
    QObject::connect(other, &RichTextBox::LinkClicked, other, &QObject::deleteLater);
    const QSignalSpy gone(other, &QObject::destroyed);
    QTest::mouseClick(other->viewport(), Qt::LeftButton, {}, QPoint(30, 18));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(gone.size(), 1);
}
