#include "AddressBox.h"
#include "PrintQt.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace {

struct AddressBoxTest : testing::Test
{
    AddressBoxTest()
    {
        auto *column = new QVBoxLayout(&window);
        column->addWidget(&box);
        column->addWidget(&next);
        window.show();
        box.setFocus();
        (void)QTest::qWaitForWindowActive(&window);
    }
    ~AddressBoxTest() override
    {
        box.setParent(nullptr);
        next.setParent(nullptr);
    }

    void paste(const QString &text)
    {
        QApplication::clipboard()->setText(text);
        box.paste();
    }
    qsizetype length() const { return box.toPlainText().size(); }

    QWidget window;
    AddressBox box;
    QLineEdit next;
};

} // namespace

TEST_F(AddressBoxTest, TakesAHundredCharactersWithTheirLineEnds)
{
    QTest::keyClicks(&box, QString(60, u'a'));
    QTest::keyClick(&box, Qt::Key_Return);
    QTest::keyClicks(&box, QString(60, u'b'));
    EXPECT_EQ(box.toPlainText(), QString(60, u'a') + u'\n' + QString(39, u'b'));
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(length(), 100);
}

TEST_F(AddressBoxTest, WhatIsPutInTheMiddleLosesItsEnd)
{
    box.setPlainText(QString(98, u'a'));
    box.moveCursor(QTextCursor::Start);
    paste(QStringLiteral("bcde"));
    EXPECT_EQ(box.toPlainText(), QStringLiteral("bc") + QString(98, u'a'));
    EXPECT_EQ(box.textCursor().position(), 2);
    QTest::keyClicks(&box, QStringLiteral("x"));
    EXPECT_EQ(box.toPlainText(), QStringLiteral("bc") + QString(98, u'a'));
}

TEST_F(AddressBoxTest, ReplacingASelectionMakesRoom)
{
    box.setPlainText(QString(100, u'a'));
    box.selectAll();
    paste(QStringLiteral("b").repeated(150));
    EXPECT_EQ(box.toPlainText(), QString(100, u'b'));
}

TEST_F(AddressBoxTest, UndoTakesBackAllOfAStep)
{
    QTest::keyClicks(&box, QStringLiteral("a"));
    paste(QString(150, u'b'));
    EXPECT_EQ(length(), 100);
    box.undo();
    EXPECT_LE(length(), 1);
    box.redo();
    EXPECT_EQ(length(), 100);
}

TEST_F(AddressBoxTest, ALongerTextIsShownWhole)
{
    box.setText(QString(120, u'a'));
    EXPECT_EQ(length(), 120);
    QTest::keyClicks(&box, QStringLiteral("x"));
    EXPECT_EQ(length(), 120);
    QTest::keyClick(&box, Qt::Key_Delete);
    EXPECT_EQ(length(), 119);
}

TEST_F(AddressBoxTest, NoCharacterIsCutInHalf)
{
    box.setPlainText(QString(99, u'a'));
    box.moveCursor(QTextCursor::End);
    paste(QStringLiteral("\U0001F600"));
    EXPECT_EQ(box.toPlainText(), QString(99, u'a'));
}

TEST_F(AddressBoxTest, TabGoesToTheNextControl)
{
    QTest::keyClick(&box, Qt::Key_Tab);
    EXPECT_TRUE(next.hasFocus());
    EXPECT_EQ(box.toPlainText(), QString());
}

TEST_F(AddressBoxTest, ItsTextHasItsNoBreakSpaces)
{
    const QString text = QStringLiteral("12\u00A0Road\nOld\u00A0Town");
    box.setText(text);
    EXPECT_EQ(box.text(), text);
    box.clear();
    EXPECT_EQ(box.text(), QString());
    paste(QStringLiteral("a\u2028b\u2029c"));
    EXPECT_EQ(box.text(), QStringLiteral("a\nb\nc"));
}
