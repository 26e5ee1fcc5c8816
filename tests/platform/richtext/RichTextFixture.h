#pragma once

#include "RichTextBox.h"

#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <gtest/gtest.h>

/// A control with a text in it, and the ways that tests have to it.
class RichTextFixture : public ::testing::Test
{
protected:
    void select(int first, int end)
    {
        box.setSelStart(first);
        box.setSelLength(end - first);
    }
    void show()
    {
        box.resize(400, 300);
        box.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&box));
    }
    /// In the viewport, the middle of the character at \a position.
    QPoint pointAt(int position)
    {
        QTextCursor cursor(box.document());
        cursor.setPosition(position);
        const QRect before = box.cursorRect(cursor);
        cursor.setPosition(position + 1);
        return QPoint((before.left() + box.cursorRect(cursor).left()) / 2 + 1, before.center().y());
    }
    QTextBlock paragraph(int number) { return box.document()->findBlockByNumber(number); }

    RichTextBox box;
};
