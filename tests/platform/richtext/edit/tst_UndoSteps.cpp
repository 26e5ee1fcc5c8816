#include "RichTextFixture.h"

namespace {

class TypedSteps : public RichTextFixture
{
protected:
    /// Each character \a interval milliseconds behind the one before, by the clock of the desktop.
    void type(const QString &text, quint64 interval = 100)
    {
        for (const QChar c : text) {
            m_time += interval;
            press(c == u'\n' ? Qt::Key_Return : Qt::Key_unknown,
                  c == u'\n' ? QStringLiteral("\r") : QString(c));
        }
    }
    void press(int key, const QString &text = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        event.setTimestamp(m_time);
        QCoreApplication::sendEvent(&box, &event);
    }
    void expectUndone(const QStringList &texts)
    {
        for (const QString &text : texts) {
            box.undo();
            EXPECT_EQ(box.Text(), text);
        }
    }

private:
    quint64 m_time = 1000;
};

} // namespace

TEST_F(TypedSteps, AWordIsAStep)
{
    type(QStringLiteral("one two, three"));
    expectUndone({QStringLiteral("one two, "), QStringLiteral("one "), QString()});
    box.redo();
    EXPECT_EQ(box.Text(), QStringLiteral("one "));
    box.redo();
    EXPECT_EQ(box.Text(), QStringLiteral("one two, "));
}

TEST_F(TypedSteps, WhatIsTypedAfterSavingIsAStep)
{
    const QTemporaryDir folder;
    type(QStringLiteral("on"));
    box.SaveFile(folder.filePath(QStringLiteral("a.rtf")), RichTextFile::Format::Rtf);
    type(QStringLiteral("e"));
    expectUndone({QStringLiteral("on"), QString()});
}

TEST_F(TypedSteps, AParagraphIsNotOneStep)
{
    type(QStringLiteral("a b\nc"));
    expectUndone({QStringLiteral("a b\n"), QStringLiteral("a b"), QStringLiteral("a "), QString()});
}

TEST_F(TypedSteps, APauseEndsAStep)
{
    type(QStringLiteral("uns"));
    type(QStringLiteral("een"), 3000);
    expectUndone({QStringLiteral("unsee"), QStringLiteral("unse"), QStringLiteral("uns"), QString()});
}

TEST_F(TypedSteps, WhatIsTypedBehindAPasteIsAStep)
{
    box.setSelText(QStringLiteral("pasted"));
    type(QStringLiteral("typed"));
    expectUndone({QStringLiteral("pasted"), QString()});
}

TEST_F(TypedSteps, WhatIsTypedElsewhereIsAStep)
{
    type(QStringLiteral("ac"));
    press(Qt::Key_Left);
    type(QStringLiteral("b"));
    expectUndone({QStringLiteral("ac"), QString()});
}

TEST_F(TypedSteps, AWordTypedOverASelectionComesBackWithIt)
{
    box.setText(QStringLiteral("old text"));
    select(0, 3);
    type(QStringLiteral("new"));
    EXPECT_EQ(box.Text(), QStringLiteral("new text"));
    expectUndone({QStringLiteral("old text")});
}

TEST_F(TypedSteps, RemovedCharactersComeBackTogether)
{
    box.setText(QStringLiteral("word"));
    box.setSelStart(4);
    press(Qt::Key_Backspace);
    press(Qt::Key_Backspace);
    EXPECT_EQ(box.Text(), QStringLiteral("wo"));
    expectUndone({QStringLiteral("word")});
}
